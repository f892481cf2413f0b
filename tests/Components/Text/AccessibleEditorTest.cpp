#include "Components/Text/PatternsEditor.h"

#include <QAccessible>
#include <QScrollBar>
#include <QTest>
#include <QVBoxLayout>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

constexpr QChar foldCharacter = QChar::ObjectReplacementCharacter;

class AccessibleEditorTest : public testing::Test
{
protected:
    void SetUp() override
    {
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(editor);
        window.resize(300, 200);
        window.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&window));
    }

    QAccessibleInterface &interface() const { return *QAccessible::queryAccessibleInterface(editor); }
    QAccessibleTextInterface &text() const { return *interface().textInterface(); }
    QAccessibleEditableTextInterface &edits() const { return *interface().editableTextInterface(); }

    QWidget window;
    PatternsEditor *editor = new PatternsEditor;
    const QString longLine = u"host.example/a*"_s.repeated(70000);
    const QString folded = u"first line\n"_s + longLine + u"\nlast line"_s;
    int start = -1;
    int end = -1;
};

TEST_F(AccessibleEditorTest, IsATextOfManyLinesThatCanBeEdited)
{
    EXPECT_EQ(interface().role(), QAccessible::EditableText);
    const QAccessible::State state = interface().state();
    EXPECT_TRUE(state.editable && state.multiLine && state.selectableText && state.focusable);
    EXPECT_FALSE(state.readOnly);
}

TEST_F(AccessibleEditorTest, HasTheWholeOfAFoldedText)
{
    editor->setText(folded);
    ASSERT_TRUE(editor->document()->toRawText().contains(foldCharacter));
    EXPECT_EQ(text().characterCount(), folded.size());
    EXPECT_EQ(text().text(0, text().characterCount()), folded);
    EXPECT_EQ(interface().text(QAccessible::Value), folded);
    const int middle = int(folded.size() / 2);
    EXPECT_EQ(text().text(middle, middle + 50), folded.mid(middle, 50));
    EXPECT_EQ(text().text(-5, 5), u"first");
    EXPECT_EQ(text().text(int(folded.size()) - 4, int(folded.size()) + 4), u"line");
}

TEST_F(AccessibleEditorTest, ATextTooLongForAMessageIsCutWithAnEllipsis)
{
    const QString endless(qsizetype{20} << 20, u'w');
    editor->setText(endless);
    EXPECT_EQ(text().characterCount(), endless.size());
    const QString given = text().text(0, text().characterCount());
    EXPECT_LT(given.size(), qsizetype{17} << 20);
    EXPECT_TRUE(given.endsWith(u"w…"_s));
    EXPECT_EQ(text().text(int(endless.size()) - 3, int(endless.size())), u"www")
        << "the rest can be asked for";
}

TEST_F(AccessibleEditorTest, ReadsLinesParagraphsAndWordsOfAFoldedText)
{
    editor->setText(folded);
    EXPECT_EQ(text().textAtOffset(3, QAccessible::LineBoundary, &start, &end), u"first line");
    EXPECT_EQ(text().textAfterOffset(3, QAccessible::ParagraphBoundary, &start, &end), longLine);
    EXPECT_EQ(folded.mid(start, end - start), longLine);
    const int last = int(folded.size()) - 3;
    EXPECT_EQ(text().textAtOffset(last, QAccessible::WordBoundary, &start, &end), u"line");
    EXPECT_EQ(start, folded.size() - 4);
    EXPECT_EQ(end, folded.size());
    EXPECT_EQ(text().textBeforeOffset(last, QAccessible::ParagraphBoundary, &start, &end), longLine);
}

TEST_F(AccessibleEditorTest, ReadsCharactersInsideAFold)
{
    editor->setText(folded);
    const int middle = int(folded.size() / 2);
    for (const int offset : {0, 8, middle, middle + 1, int(folded.size()) - 1}) {
        EXPECT_EQ(text().textAtOffset(offset, QAccessible::CharBoundary, &start, &end),
                  folded.mid(offset, 1));
        EXPECT_EQ(start, offset);
        EXPECT_EQ(end, offset + 1);
    }
}

TEST_F(AccessibleEditorTest, TheCaretPositionIsThatInTheWholeText)
{
    editor->setText(folded);
    editor->moveCursor(QTextCursor::End);
    EXPECT_EQ(text().cursorPosition(), folded.size());
    text().setCursorPosition(int(folded.size()) - 9);
    EXPECT_EQ(text().cursorPosition(), folded.size() - 9);
    QTest::keyClicks(editor, u"!"_s);
    EXPECT_EQ(editor->text(), u"first line\n"_s + longLine + u"\n!last line"_s);

    text().setCursorPosition(int(folded.size() / 2));
    const int beforeFold = text().cursorPosition();
    EXPECT_LT(beforeFold, folded.size() / 2);
    EXPECT_EQ(editor->document()->characterAt(editor->textCursor().position()), foldCharacter);
}

TEST_F(AccessibleEditorTest, ASelectionsOffsetsAreThoseInTheWholeText)
{
    editor->setText(folded);
    EXPECT_EQ(text().selectionCount(), 0);
    const int length = int(folded.size());
    text().addSelection(6, length - 5);
    EXPECT_EQ(text().selectionCount(), 1);
    text().selection(0, &start, &end);
    EXPECT_EQ(start, 6);
    EXPECT_EQ(end, length - 5);
    text().removeSelection(0);
    EXPECT_EQ(text().selectionCount(), 0);
    EXPECT_EQ(text().cursorPosition(), length - 5);
}

TEST_F(AccessibleEditorTest, EditsTheWholeTextAndCanBeUndone)
{
    editor->setText(folded);
    const int length = int(folded.size());
    edits().replaceText(length - 9, length - 5, u"final"_s);
    EXPECT_EQ(editor->text(), u"first line\n"_s + longLine + u"\nfinal line"_s);
    edits().insertText(0, u"the "_s);
    EXPECT_EQ(editor->text(), u"the first line\n"_s + longLine + u"\nfinal line"_s);
    edits().deleteText(14, 15 + int(longLine.size()));
    EXPECT_EQ(editor->text(), u"the first line\nfinal line");
    editor->undo();
    EXPECT_EQ(editor->text(), u"the first line\n"_s + longLine + u"\nfinal line"_s);
}

TEST_F(AccessibleEditorTest, CharactersAreWhereTheyAreDrawn)
{
    editor->setText(u"one\ntwo"_s);
    const QRect first = text().characterRect(0);
    const QRect second = text().characterRect(1);
    const QRect below = text().characterRect(4);
    EXPECT_EQ(first.topLeft(), editor->viewport()->mapToGlobal(QPoint(0, 0)));
    EXPECT_GE(second.left(), first.center().x());
    EXPECT_EQ(second.top(), first.top());
    EXPECT_GE(below.top(), first.bottom());
    EXPECT_EQ(text().offsetAtPoint(below.center() - QPoint(1, 0)), 4);
    EXPECT_EQ(text().offsetAtPoint(editor->viewport()->mapToGlobal(QPoint(-5, 5))), -1);
}

TEST_F(AccessibleEditorTest, ScrollsToAPartAndLeavesTheCaretAlone)
{
    editor->setText(u"a\n"_s.repeated(100));
    text().scrollToSubstring(150, 152);
    EXPECT_GT(editor->verticalScrollBar()->value(), 0);
    EXPECT_EQ(text().cursorPosition(), 0);
}

} // namespace
