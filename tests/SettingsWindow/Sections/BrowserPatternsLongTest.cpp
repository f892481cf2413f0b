#include "Components/RowList.h"
#include "Components/Text/PatternsEditor.h"
#include "PageTest.h"
#include "SettingsWindow/Sections/BrowserPatternsSection.h"
#include "SettingsWindow/Sections/ProjectRow.h"

#include <QPushButton>
#include <QScrollBar>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

constexpr int count = 10000;

/// The Browser Patterns page with more projects than can be in view, in the order of their numbers.
class BrowserPatternsLongTest : public PageTest
{
protected:
    void SetUp() override
    {
        QByteArray json = "{";
        for (int number = 0; number < count; ++number) {
            const QByteArray text = QByteArray::number(10000 + number);
            json += (number == 0 ? "\"/p" : ",\"/p") + text + "\":[\"host" + text + "\"]";
        }
        putHomeFile(u".claude/browser-patterns.json"_s, json + "}");
        show<BrowserPatternsSection>();
        list = page->findChild<RowList *>();
    }

    PatternsEditor *editor(int number) const
    {
        auto *row = static_cast<ProjectRow *>(list->row(number));
        return row ? &row->editor() : nullptr;
    }

    void scrollTo(int value) const
    {
        window->verticalScrollBar()->setValue(value);
        processEvents();
    }

    RowList *list = nullptr;
};

TEST_F(BrowserPatternsLongTest, OnlyRowsInViewExist)
{
    EXPECT_GT(list->createdCount(), 1);
    EXPECT_LT(list->createdCount(), 10);
    ASSERT_NE(editor(0), nullptr);
    EXPECT_EQ(editor(0)->toPlainText(), u"host10000");
}

TEST_F(BrowserPatternsLongTest, ARowKeepsItsTextSelectionAndHistoryWhileOutOfView)
{
    editor(0)->setFocus();
    QTest::keyClicks(editor(0), u"abc"_s);
    QTest::keyClick(editor(0), Qt::Key_Right, Qt::ShiftModifier);
    button(u"Save Patterns"_s)->setFocus();
    scrollTo(500000);
    EXPECT_EQ(editor(1), nullptr);
    scrollTo(0);
    ASSERT_NE(editor(0), nullptr);
    EXPECT_EQ(editor(0)->toPlainText(), u"abchost10000");
    EXPECT_EQ(editor(0)->textCursor().selectedText(), u"h");
    editor(0)->undo();
    EXPECT_EQ(model->projects->front().urls, u"host10000");
}

TEST_F(BrowserPatternsLongTest, TypingGoesToTheRowThatHasTheFocusEvenOutOfView)
{
    editor(1)->setFocus();
    scrollTo(700000);
    ASSERT_NE(editor(1), nullptr);
    QTest::keyClicks(editor(1), u"x"_s);
    EXPECT_EQ(model->projects.value()[1].urls, u"xhost10001");
}

TEST_F(BrowserPatternsLongTest, SaveWritesAllRowsShownOrNot)
{
    editor(0)->setFocus();
    QTest::keyClicks(editor(0), u"x"_s);
    press(Qt::CTRL | Qt::Key_S);
    const QByteArray file = homeFile(u".claude/browser-patterns.json"_s).value();
    EXPECT_EQ(file.count("\"host"), count - 1);
    EXPECT_EQ(file.count("\"xhost10000\""), 1);
    EXPECT_TRUE(file.contains("\"\\/p19999\" : [\n    \"host19999\"\n  ]"));
    EXPECT_EQ(model->browserPatternsCount, count);
}

TEST_F(BrowserPatternsLongTest, ClearingThePatternsEmptiesAllRowsAndTheirHistory)
{
    editor(0)->setFocus();
    QTest::keyClicks(editor(0), u"abc"_s);
    button(u"Save Patterns"_s)->setFocus();
    scrollTo(500000);
    model->clearBrowserPatterns();
    processEvents();
    scrollTo(0);
    ASSERT_NE(editor(0), nullptr);
    EXPECT_EQ(editor(0)->toPlainText(), QString());
    EXPECT_FALSE(editor(0)->document()->isUndoAvailable());
}

TEST_F(BrowserPatternsLongTest, ThePageMayCloseWithAnEditedRowOutOfView)
{
    editor(0)->setFocus();
    QTest::keyClicks(editor(0), u"abc"_s);
    button(u"Save Patterns"_s)->setFocus();
    scrollTo(500000);
    closePage();
    EXPECT_EQ(model->projects->front().urls, u"abchost10000");
}

TEST_F(BrowserPatternsLongTest, TheLastRowAndSaveAreAtTheEnd)
{
    scrollTo(window->verticalScrollBar()->maximum());
    scrollTo(window->verticalScrollBar()->maximum());
    ASSERT_NE(editor(count - 1), nullptr);
    EXPECT_EQ(editor(count - 1)->toPlainText(), u"host19999");
    const QPushButton *save = button(u"Save Patterns"_s);
    EXPECT_TRUE(window->viewport()->rect().contains(save->mapTo(window->viewport(), QPoint())));
}

} // namespace
