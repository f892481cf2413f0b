#include "PatternsEditorTest.h"

#include <QApplication>
#include <QClipboard>
#include <QMimeData>
#include <QScrollBar>
#include <QTest>

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <vector>

using namespace Qt::StringLiterals;

namespace
{

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

TEST_F(PatternsEditorTest, PastedTextIsKeptAndCopiedUnchanged)
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

/// Each fills a clipboard with something other than text.
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

/// Drags the data over the middle of the editor and drops it there.
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
    EXPECT_EQ(editor->text(), u"one two") << "a dropped text is inserted";
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

TEST_F(PatternsEditorTest, TabMovesTheFocusOn)
{
    editor->setText(u"a"_s);
    QTest::keyClick(editor, Qt::Key_Tab);
    EXPECT_EQ(editor->text(), u"a");
    EXPECT_TRUE(edits.isEmpty());
    EXPECT_TRUE(next->hasFocus());
}

TEST_F(PatternsEditorTest, IsTouchedByCaretSelectionScrollingAndEditsOnly)
{
    EXPECT_FALSE(editor->isTouched());
    editor->setText(lines(20));
    QCoreApplication::sendPostedEvents();
    EXPECT_FALSE(editor->isTouched());
    editor->moveCursor(QTextCursor::NextCharacter, QTextCursor::KeepAnchor);
    EXPECT_TRUE(editor->isTouched());
    editor->moveCursor(QTextCursor::Start);
    EXPECT_FALSE(editor->isTouched());
    editor->verticalScrollBar()->setValue(1);
    EXPECT_TRUE(editor->isTouched());
    editor->verticalScrollBar()->setValue(0);
    EXPECT_FALSE(editor->isTouched());
    QTest::keyClicks(editor, u"b"_s);
    editor->moveCursor(QTextCursor::Start);
    EXPECT_TRUE(editor->isTouched());
    editor->undo();
    editor->moveCursor(QTextCursor::Start);
    EXPECT_TRUE(editor->isTouched()); // the edit can be redone
    editor->setText(u"another"_s);
    EXPECT_FALSE(editor->isTouched());
}

TEST_F(PatternsEditorTest, ATouchDragScrollsIt)
{
    editor->setText(lines(50));
    const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    const QPoint start = editor->viewport()->rect().center();
    QTest::touchEvent(editor->viewport(), screen.get()).press(0, start);
    for (int distance = 5; distance <= 40; distance += 5)
        QTest::touchEvent(editor->viewport(), screen.get()).move(0, start - QPoint(0, distance));
    EXPECT_TRUE(QTest::qWaitFor([this] { return editor->verticalScrollBar()->value() > 0; }));
    QTest::touchEvent(editor->viewport(), screen.get()).release(0, start - QPoint(0, 40));
    EXPECT_FALSE(editor->textCursor().hasSelection());
}

} // namespace
