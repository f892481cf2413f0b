#include "Components/Text/PatternsEditor.h"

#include "Components/Text/DocumentText.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QPushButton>
#include <QRandomGenerator>
#include <QScrollBar>
#include <QTest>
#include <QTextBlock>
#include <QVBoxLayout>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace
{

class PatternsEditorTest : public testing::Test
{
protected:
    void SetUp() override
    {
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(editor);
        layout->addWidget(next);
        layout->addStretch();
        QObject::connect(editor, &PatternsEditor::edited, [this](const QString &text) { edits << text; });
        window.resize(300, 200);
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
        editor->setFocus();
    }

    static QString lines(int count) { return u"a\n"_s.repeated(count - 1) + u'a'; }

    QWidget window;
    PatternsEditor *editor = new PatternsEditor;
    QPushButton *next = new QPushButton;
    QStringList edits;
};

TEST_F(PatternsEditorTest, TypingIsAnnouncedWithTheWholeText)
{
    editor->setText(u"a.com/*"_s);
    editor->moveCursor(QTextCursor::End);
    QTest::keyClick(editor, Qt::Key_Return);
    QTest::keyClicks(editor, u"b"_s);
    EXPECT_EQ(edits, QStringList({u"a.com/*\n"_s, u"a.com/*\nb"_s}));
    EXPECT_EQ(editor->text(), u"a.com/*\nb");
}

TEST_F(PatternsEditorTest, ShiftAndReturnEndALineToo)
{
    QTest::keyClicks(editor, u"a"_s);
    QTest::keyClick(editor, Qt::Key_Return, Qt::ShiftModifier);
    QTest::keyClicks(editor, u"b"_s);
    QTest::keyClick(editor, Qt::Key_Enter, Qt::ShiftModifier);
    QTest::keyClicks(editor, u"c"_s);
    EXPECT_EQ(editor->text(), u"a\nb\nc");
    editor->undo();
    EXPECT_EQ(editor->text(), u"a\nb\n");
}

TEST_F(PatternsEditorTest, SettingATextIsNoEdit)
{
    editor->setText(u"a"_s);
    editor->setText(u"b\r\nc"_s);
    EXPECT_TRUE(edits.isEmpty());
}

TEST_F(PatternsEditorTest, SettingTheSameTextKeepsCaretSelectionAndHistory)
{
    editor->setText(u"one\ntwo"_s);
    QTest::keyClicks(editor, u"x"_s);
    QTest::keyClick(editor, Qt::Key_Right, Qt::ShiftModifier);
    editor->setText(u"xone\ntwo"_s);
    EXPECT_EQ(editor->textCursor().selectedText(), u"o");
    editor->undo();
    EXPECT_EQ(editor->text(), u"one\ntwo");
}

TEST_F(PatternsEditorTest, CharactersThatLookLikeSpacesOrLineBreaksStayWhatTheyAre)
{
    const QString text = u"a\u00A0b\u2028c\u200B\td\re\r\nf\u2029g\ufdd0h\ufdd1i"_s;
    editor->setText(text);
    editor->moveCursor(QTextCursor::End);
    QTest::keyClicks(editor, u"!"_s);
    EXPECT_EQ(editor->text(), text + u'!');
}

TEST_F(PatternsEditorTest, PastedTextStaysAsItIsAndIsCopiedSo)
{
    const QString text = u"a\r\nb\rc\u2029d\u00A0e"_s;
    QGuiApplication::clipboard()->setText(text);
    editor->paste();
    EXPECT_EQ(editor->text(), text);
    EXPECT_EQ(editor->document()->blockCount(), 2) << "a line ends at a line feed only";

    QGuiApplication::clipboard()->clear();
    editor->selectAll();
    editor->copy();
    EXPECT_EQ(QGuiApplication::clipboard()->text(), text);
}

/// What a clipboard may hold that is no text.
std::vector<std::function<void(QClipboard::Mode)>> contentsWithoutText()
{
    return {[](QClipboard::Mode mode) { QGuiApplication::clipboard()->clear(mode); },
            [](QClipboard::Mode mode) {
                QImage picture(2, 2, QImage::Format_RGB32);
                picture.fill(Qt::red);
                QGuiApplication::clipboard()->setImage(picture, mode);
            },
            [](QClipboard::Mode mode) { QGuiApplication::clipboard()->setText(QString(), mode); }};
}

TEST_F(PatternsEditorTest, APasteWithoutATextDoesNothing)
{
    editor->setText(u"one"_s);
    QTest::keyClicks(editor, u"x"_s);
    editor->undo();
    editor->selectAll();
    edits.clear();
    for (const auto &fill : contentsWithoutText()) {
        fill(QClipboard::Clipboard);
        QTest::keyClick(editor, Qt::Key_V, Qt::ControlModifier);
        editor->paste();
        EXPECT_EQ(editor->text(), u"one");
        EXPECT_EQ(editor->textCursor().selectedText(), u"one");
        EXPECT_TRUE(editor->document()->isRedoAvailable()) << "the history is as it was";
    }
    EXPECT_TRUE(edits.isEmpty());
}

/// Drags something into the middle of the editor and lets go of it there.
void dropOn(PatternsEditor &editor, const QMimeData &dragged)
{
    const QPointF place = editor.viewport()->rect().center();
    QDragEnterEvent enter(place.toPoint(), Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(editor.viewport(), &enter);
    QDropEvent drop(place, Qt::CopyAction, &dragged, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(editor.viewport(), &drop);
}

TEST_F(PatternsEditorTest, ADropWithoutATextDoesNothing)
{
    editor->setText(u"one"_s);
    editor->selectAll();
    QMimeData picture;
    picture.setData(u"image/png"_s, "picture");
    QMimeData nothing;
    nothing.setText(u""_s);
    for (const QMimeData *dragged : {&picture, &nothing}) {
        dropOn(*editor, *dragged);
        EXPECT_EQ(editor->text(), u"one");
        EXPECT_EQ(editor->textCursor().selectedText(), u"one");
        EXPECT_FALSE(editor->document()->isUndoAvailable());
    }
    QMimeData text;
    text.setText(u" two"_s);
    dropOn(*editor, text);
    EXPECT_EQ(editor->text(), u"one two") << "where the text was dropped";
}

TEST_F(PatternsEditorTest, MarkupIsPlainText)
{
    editor->setText(u"<b>x</b>&amp;"_s);
    EXPECT_EQ(editor->toPlainText(), u"<b>x</b>&amp;");
    auto *rich = new QMimeData;
    rich->setHtml(u"<b>bold</b>"_s);
    rich->setText(u"plain"_s);
    QGuiApplication::clipboard()->setMimeData(rich);
    editor->selectAll();
    editor->paste();
    EXPECT_EQ(editor->text(), u"plain");
}

TEST_F(PatternsEditorTest, IsSeventyPointsTallGrowsToNinetySixAndScrollsBeyond)
{
    editor->setText(lines(2));
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(editor->height(), 70);
    EXPECT_EQ(editor->verticalScrollBar()->maximum(), 0);
    editor->setText(lines(6));
    QCoreApplication::sendPostedEvents();
    EXPECT_GT(editor->height(), 70);
    EXPECT_LE(editor->height(), 96);
    EXPECT_EQ(editor->verticalScrollBar()->maximum(), 0);
    editor->setText(lines(20));
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(editor->height(), 96);
    EXPECT_GT(editor->verticalScrollBar()->maximum(), 0);
}

TEST_F(PatternsEditorTest, GrowsWithLinesThatWrap)
{
    editor->setText(u"w"_s.repeated(2000));
    QCoreApplication::sendPostedEvents();
    EXPECT_EQ(editor->height(), 96);
}

TEST_F(PatternsEditorTest, TheExpectedHeightIsTheRealOneWhereNothingWraps)
{
    const auto expected = PatternsEditor::expectedHeight();
    for (int count = 1; count < 12; ++count) {
        editor->setText(lines(count));
        QCoreApplication::sendPostedEvents();
        EXPECT_EQ(editor->height(), expected(count)) << count << " lines";
        const bool fits = count * int(QFontMetrics(editor->font()).lineSpacing()) < editor->height();
        EXPECT_EQ(editor->verticalScrollBar()->maximum() == 0, fits) << count << " lines";
    }
}

TEST_F(PatternsEditorTest, TabMovesOn)
{
    editor->setText(u"a"_s);
    QTest::keyClick(editor, Qt::Key_Tab);
    EXPECT_EQ(editor->text(), u"a");
    EXPECT_TRUE(edits.isEmpty());
    EXPECT_TRUE(next->hasFocus());
}

TEST_F(PatternsEditorTest, AnUntouchedEditorHasNoWorkToHandOver)
{
    EXPECT_EQ(editor->saveState(), nullptr);
    editor->setText(lines(20));
    EXPECT_EQ(editor->saveState(), nullptr);
}

TEST_F(PatternsEditorTest, AnotherEditorTakesUpCaretSelectionHistoryAndScrollPosition)
{
    editor->setText(lines(20));
    QCoreApplication::sendPostedEvents();
    QTest::keyClicks(editor, u"new"_s);
    editor->moveCursor(QTextCursor::End);
    editor->moveCursor(QTextCursor::PreviousCharacter, QTextCursor::KeepAnchor);
    const int scroll = editor->verticalScrollBar()->value();
    ASSERT_GT(scroll, 0);
    std::unique_ptr<PatternsEditor::EditState> state = editor->saveState();
    const QRect place = editor->geometry();
    delete editor;

    auto *other = new PatternsEditor(&window);
    other->setGeometry(place);
    other->show();
    other->restoreState(std::move(state));
    EXPECT_EQ(other->text(), u"new"_s + lines(20));
    EXPECT_EQ(other->textCursor().selectedText(), u"a");
    EXPECT_EQ(other->verticalScrollBar()->value(), scroll);
    other->undo();
    EXPECT_EQ(other->text(), lines(20));
}

TEST_F(PatternsEditorTest, WorkMayOutliveAllEditors)
{
    editor->setText(u"a"_s);
    QTest::keyClicks(editor, u"b"_s);
    const std::unique_ptr<PatternsEditor::EditState> state = editor->saveState();
    delete editor;
    EXPECT_EQ(state->text, u"ba");
}

TEST_F(PatternsEditorTest, AFingerScrollsIt)
{
    editor->setText(lines(50));
    const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    const QPoint start = editor->viewport()->rect().center();
    QTest::touchEvent(editor->viewport(), screen.get()).press(0, start);
    for (int way = 5; way <= 40; way += 5)
        QTest::touchEvent(editor->viewport(), screen.get()).move(0, start - QPoint(0, way));
    EXPECT_TRUE(QTest::qWaitFor([this] { return editor->verticalScrollBar()->value() > 0; }));
    QTest::touchEvent(editor->viewport(), screen.get()).release(0, start - QPoint(0, 40));
    EXPECT_FALSE(editor->textCursor().hasSelection());
}

/// Texts of millions of characters. Laid out whole, each would keep the window busy for minutes.
class EndlessPatternsTest : public PatternsEditorTest, public testing::WithParamInterface<QString>
{
protected:
    /// That the document holds no more than can be laid out at once.
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

TEST_P(EndlessPatternsTest, AreCopiedDeletedAndBroughtBackWhole)
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

TEST_P(EndlessPatternsTest, ArePastedAgainAndAgainIntoOneLine)
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

/// Edits of a text with folds, each compared with the same edit of the text itself.
class FoldedEditsTest : public PatternsEditorTest
{
protected:
    /// The length of the text before a position of the document.
    qsizetype offset(int position) const
    {
        return DocumentText::text(*editor->document(), 0, position).size();
    }

    int anyOf(int count) { return int(m_random.bounded(count)); }

    /// Selects any part, often one that ends at a fold.
    void select()
    {
        const QString raw = editor->document()->toRawText();
        const auto place = [&] {
            const int fold = int(raw.indexOf(u'\ufffc', anyOf(int(raw.size()) + 1)));
            return fold < 0 || anyOf(2) == 0 ? anyOf(int(raw.size()) + 1) : fold + anyOf(2);
        };
        QTextCursor cursor = editor->textCursor();
        cursor.setPosition(place());
        cursor.setPosition(anyOf(3) == 0 ? cursor.position() : place(), QTextCursor::KeepAnchor);
        editor->setTextCursor(cursor);
        m_from = offset(cursor.selectionStart());
        m_to = offset(cursor.selectionEnd());
    }

    /// Does one edit of the selection. Returns what it puts there.
    QString edit()
    {
        switch (anyOf(4)) {
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

TEST_F(PatternsEditorTest, TheTextsOwnObjectCharacterIsNoFold)
{
    editor->setText(u"a\ufffcb"_s);
    QTest::keyClicks(editor, u"x"_s);
    EXPECT_EQ(editor->text(), u"xa\ufffcb"_s);
}

TEST_F(PatternsEditorTest, OfAFoldedTextBothEndsOfEachLineAreShown)
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

TEST_F(PatternsEditorTest, AFoldIsDrawn)
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
