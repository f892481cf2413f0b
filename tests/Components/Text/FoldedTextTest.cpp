#include "Components/Text/DocumentText.h"
#include "PatternsEditorTest.h"

#include <QApplication>
#include <QClipboard>
#include <QRandomGenerator>
#include <QTextBlock>

#include <vector>

using namespace Qt::StringLiterals;

namespace
{

using FoldedTextTest = PatternsEditorTest;

/// Texts of millions of characters. Laid out whole, each would keep the window busy for minutes.
class EndlessPatternsTest : public PatternsEditorTest, public testing::WithParamInterface<QString>
{
protected:
    /// Expects a document small enough to be laid out at once.
    void expectSmallDocument() const
    {
        EXPECT_LT(editor->document()->characterCount(), 250000);
        EXPECT_LT(editor->document()->blockCount(), 4000);
        for (QTextBlock block = editor->document()->begin(); block.isValid(); block = block.next())
            EXPECT_LT(block.length(), 10000);
    }

    const QString text = GetParam();
};

TEST_P(EndlessPatternsTest, AreFoldedInTheMiddleAndStayWhole)
{
    editor->setText(text);
    editor->grab();
    expectSmallDocument();
    EXPECT_EQ(editor->text(), text);
    EXPECT_TRUE(edits.isEmpty());
    EXPECT_FALSE(editor->document()->isUndoAvailable());
}

TEST_P(EndlessPatternsTest, AreEditedAtBothEnds)
{
    editor->setText(text);
    QTest::keyClicks(editor, u"ab"_s);
    EXPECT_EQ(edits.takeLast(), u"ab"_s + text);
    QTest::keyClick(editor, Qt::Key_End, Qt::ControlModifier);
    QTest::keyClicks(editor, u"c"_s);
    QTest::keyClick(editor, Qt::Key_Return);
    EXPECT_EQ(edits.takeLast(), u"ab"_s + text + u"c\n"_s);
    editor->undo();
    EXPECT_EQ(editor->text(), u"ab"_s + text + u'c');
    editor->grab();
}

TEST_P(EndlessPatternsTest, AreCutAndRestoredWhole)
{
    editor->setText(text);
    editor->selectAll();
    editor->cut();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), text);
    EXPECT_EQ(editor->text(), QString());
    editor->undo();
    EXPECT_EQ(editor->text(), text);
    editor->redo();
    editor->paste();
    EXPECT_EQ(editor->text(), text);
    expectSmallDocument();
}

TEST_P(EndlessPatternsTest, ArePastedRepeatedlyIntoOneLine)
{
    QGuiApplication::clipboard()->setText(text);
    for (int time = 0; time < 5; ++time)
        editor->paste();
    EXPECT_EQ(editor->text(), text.repeated(5));
    expectSmallDocument();
    editor->undo();
    EXPECT_EQ(editor->text(), text.repeated(4));
}

INSTANTIATE_TEST_SUITE_P(Texts, EndlessPatternsTest,
                         testing::Values(u"w"_s.repeated(1000000), u"host/*\n"_s.repeated(1000000),
                                         u"\n"_s.repeated(1000000), u'e' + u"\u0301"_s.repeated(1000000),
                                         u"\u2029\r\ufffc"_s.repeated(300000)));

/// Random edits of a folded text, each compared with the same edit of the plain string.
class FoldedEditsTest : public PatternsEditorTest
{
protected:
    /// The offset in the text of a position in the document.
    qsizetype offset(int position) const
    {
        return DocumentText::text(*editor->document(), 0, position).size();
    }

    int randomBelow(int count) { return int(m_random.bounded(count)); }

    /// Selects a random part, often one that ends at a fold.
    void select()
    {
        const QString raw = editor->document()->toRawText();
        const auto place = [&] {
            const int fold = int(raw.indexOf(u'\ufffc', randomBelow(int(raw.size()) + 1)));
            return fold < 0 || randomBelow(2) == 0 ? randomBelow(int(raw.size()) + 1) : fold + randomBelow(2);
        };
        QTextCursor cursor = editor->textCursor();
        cursor.setPosition(place());
        cursor.setPosition(randomBelow(3) == 0 ? cursor.position() : place(), QTextCursor::KeepAnchor);
        editor->setTextCursor(cursor);
        m_from = offset(cursor.selectionStart());
        m_to = offset(cursor.selectionEnd());
    }

    /// Replaces the selection in one of four ways. Returns the inserted text.
    QString edit()
    {
        switch (randomBelow(4)) {
        case 0:
            QTest::keyClicks(editor, u"k"_s);
            return u"k"_s;
        case 1:
            QTest::keyClick(editor, Qt::Key_Return);
            return u"\n"_s;
        case 2:
            if (m_from == m_to)
                return {};
            editor->cut();
            return {};
        default:
            editor->paste();
            return QGuiApplication::clipboard()->text();
        }
    }

    QString edited(const QString &text, const QString &inserted) const
    {
        return text.first(m_from) + inserted + text.sliced(m_to);
    }

    QString selected(const QString &text) const { return text.sliced(m_from, m_to - m_from); }

private:
    QRandomGenerator m_random{1};
    qsizetype m_from = 0;
    qsizetype m_to = 0;
};

TEST_F(FoldedEditsTest, ChangeTheSelectionAndNothingElse)
{
    const QString longLine = u"host.example/path\u00a0\r\u2029\ufffc"_s.repeated(400);
    QString text = longLine + u"\nshort\n"_s + longLine + u"e"_s + u"\u0301"_s.repeated(9000) + u"\nlast"_s;
    QGuiApplication::clipboard()->setText(longLine);
    editor->setText(text);
    ASSERT_LT(editor->document()->characterCount(), text.size() / 2);
    std::vector<QString> history;
    for (int step = 0; step < 200; ++step) {
        select();
        if (editor->textCursor().hasSelection() && step % 3 == 0) {
            editor->copy();
            ASSERT_EQ(QGuiApplication::clipboard()->text(), selected(text)) << step;
        }
        const QString before = text;
        text = edited(text, edit());
        ASSERT_EQ(editor->text(), text) << step;
        if (text != before)
            history.push_back(before);
        if (text.size() > 200000) {
            editor->undo();
            text = editor->text();
        }
    }
    while (editor->document()->isUndoAvailable())
        editor->undo();
    EXPECT_EQ(editor->text(), history.front());
    while (editor->document()->isRedoAvailable())
        editor->redo();
    EXPECT_EQ(editor->text(), text);
}

TEST_F(FoldedTextTest, TheTextsOwnObjectCharacterIsNoFold)
{
    editor->setText(u"a\ufffcb"_s);
    QTest::keyClicks(editor, u"x"_s);
    EXPECT_EQ(editor->text(), u"xa\ufffcb"_s);
}

TEST_F(FoldedTextTest, BothEndsOfEachFoldedLineAreShown)
{
    editor->setText(u"first\n"_s + u"w"_s.repeated(100000) + u"/end\nlast"_s);
    const QStringList shown = editor->document()->toRawText().split(QChar::ParagraphSeparator);
    ASSERT_EQ(shown.size(), 3);
    EXPECT_EQ(shown[0], u"first"_s);
    EXPECT_TRUE(shown[1].startsWith(u"www"_s));
    EXPECT_EQ(shown[1].count(u'\ufffc'), 1);
    EXPECT_TRUE(shown[1].endsWith(u"w/end"_s));
    EXPECT_EQ(shown[2], u"last"_s);
}

TEST_F(FoldedTextTest, AFoldIsDrawn)
{
    editor->setText(u"w"_s.repeated(100000));
    QTextCursor mark = editor->textCursor();
    mark.setPosition(int(editor->document()->toRawText().indexOf(u'\ufffc')));
    editor->setTextCursor(mark);
    const QRect before = editor->cursorRect(mark);
    const int ellipsis = QFontMetrics(editor->font()).horizontalAdvance(u'…');
    const QTextLine line = mark.block().layout()->lineForTextPosition(mark.positionInBlock());
    EXPECT_GT(line.cursorToX(mark.positionInBlock() + 1), line.cursorToX(mark.positionInBlock()) + ellipsis);
    const QImage picture = editor->viewport()->grab().toImage();
    EXPECT_NE(picture.pixel(before.left() + 4, before.center().y()),
              picture.pixel(picture.width() - 1, before.center().y()));
}

} // namespace
