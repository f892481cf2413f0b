#include "SettingsWindow/Sections/BrowserPatternsSection.h"

#include "Components/Text/PatternsEditor.h"
#include "PageTest.h"
#include "SettingsWindow/Sections/ProjectRow.h"

#include <QAccessible>
#include <QPushButton>
#include <QTest>

using namespace Qt::StringLiterals;

namespace
{

const auto patternsFile = u".claude/browser-patterns.json"_s;

class BrowserPatternsSectionTest : public PageTest
{
protected:
    PatternsEditor *editor(const QString &root) const
    {
        for (PatternsEditor *each : page->findChildren<PatternsEditor *>()) {
            if (each->accessibleName() == u"URL patterns for "_s + root)
                return each;
        }
        ADD_FAILURE() << "no editor for " << qPrintable(root);
        return nullptr;
    }

    void type(const QString &root, const QString &text) const
    {
        editor(root)->setFocus();
        QTest::keyClicks(editor(root), text);
        processEvents();
    }

    QString urls(const QString &root) const
    {
        for (const BrowserConfigProject &project : model->projects.value()) {
            if (project.root == root)
                return project.urls;
        }
        return u"no such project"_s;
    }
};

TEST_F(BrowserPatternsSectionTest, AnEditorsBackgroundHasCornersOfRadiusSix)
{
    putHomeFile(patternsFile, R"({"/work/app": ["a.com/*"]})");
    show<BrowserPatternsSection>();
    processEvents();
    QWidget &background = *editor(u"/work/app"_s)->parentWidget();
    QImage picture(background.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    background.render(&picture, {}, {}, {});
    // A corner of radius 6 crosses the diagonal at 1.8 points: in the second pixel, and not in the third.
    const int fillAlpha = picture.pixelColor(picture.width() / 2, 2).alpha();
    EXPECT_NEAR(fillAlpha, 255 * 0.05, 1);
    EXPECT_EQ(picture.pixelColor(0, 0).alpha(), 0);
    EXPECT_LT(picture.pixelColor(1, 1).alpha(), fillAlpha);
    EXPECT_EQ(picture.pixelColor(2, 2).alpha(), fillAlpha);
}

TEST_F(BrowserPatternsSectionTest, WithoutProjectsItSaysWhyAndThereIsNothingToSave)
{
    show<BrowserPatternsSection>();
    EXPECT_EQ(texts(),
              QStringList({u"URL PATTERNS"_s,
                           u"No projects yet — a project is added here the first time Vantle sees a "
                           "notification from one."_s,
                           u"One pattern per line. Use * as wildcard. Tabs matching any pattern appear "
                           "in the browser picker when that project is the active notification."_s}));
    EXPECT_FALSE(button(u"Save Patterns"_s)->isEnabled());
    press(Qt::CTRL | Qt::Key_S);
    EXPECT_FALSE(homeFile(patternsFile));
}

TEST_F(BrowserPatternsSectionTest, ShowsEveryProjectWithItsFolderRootAndPatterns)
{
    putHomeFile(patternsFile, R"({"/w/zeta":["a/*","b/*"]})");
    putHomeFile(u".vantle/sessions.json"_s, R"([{"cwd":"/w/alpha"}])");
    show<BrowserPatternsSection>();
    EXPECT_EQ(texts().mid(1, 4), QStringList({u"alpha"_s, u"/w/alpha"_s, u"zeta"_s, u"/w/zeta"_s}));
    EXPECT_EQ(editor(u"/w/zeta"_s)->toPlainText(), u"a/*\nb/*");
    EXPECT_EQ(editor(u"/w/alpha"_s)->toPlainText(), QString());
    EXPECT_TRUE(button(u"Save Patterns"_s)->isEnabled());
}

TEST_F(BrowserPatternsSectionTest, TypingChangesOnlyThatRowInTheModelAndNoFile)
{
    putHomeFile(patternsFile, R"({"/a":["x"],"/b":["y"]})");
    show<BrowserPatternsSection>();
    const auto before = homeFile(patternsFile);
    type(u"/b"_s, u"new"_s);
    EXPECT_EQ(urls(u"/a"_s), u"x");
    EXPECT_EQ(urls(u"/b"_s), u"newy");
    EXPECT_EQ(homeFile(patternsFile), before);
    EXPECT_EQ(model->browserPatternsCount, 2);
}

TEST_F(BrowserPatternsSectionTest, SaveWritesAllRowsAndTellsNobody)
{
    putHomeFile(patternsFile, R"({"/b":["y"],"/a":["x"]})");
    show<BrowserPatternsSection>();
    type(u"/b"_s, u"  new  "_s);
    QTest::keyClick(editor(u"/b"_s), Qt::Key_Return);
    QTest::keyClick(editor(u"/b"_s), Qt::Key_Return);
    click(u"Save Patterns"_s);
    EXPECT_EQ(homeFile(patternsFile),
              "{\n  \"\\/a\" : [\n    \"x\"\n  ],\n  \"\\/b\" : [\n    \"new\",\n    \"y\"\n  ]\n}");
    EXPECT_TRUE(posts.paths().isEmpty());
}

TEST_F(BrowserPatternsSectionTest, TheShortcutSavesWhileTypingAndOnlyWhileThePageIsShown)
{
    putHomeFile(patternsFile, R"({"/a":["x"]})");
    show<BrowserPatternsSection>();
    type(u"/a"_s, u"z"_s);
    press(Qt::CTRL | Qt::Key_S);
    EXPECT_TRUE(homeFile(patternsFile)->contains("zx"));
    type(u"/a"_s, u"z"_s);
    page->hide();
    press(Qt::CTRL | Qt::Key_S);
    EXPECT_FALSE(homeFile(patternsFile)->contains("zzx"));
}

TEST_F(BrowserPatternsSectionTest, SavingWithEveryRowEmptyWritesAnEmptyObject)
{
    putHomeFile(patternsFile, R"({"/a":["x"]})");
    show<BrowserPatternsSection>();
    editor(u"/a"_s)->selectAll();
    QTest::keyClick(editor(u"/a"_s), Qt::Key_Delete);
    click(u"Save Patterns"_s);
    EXPECT_EQ(homeFile(patternsFile), "{\n\n}");
    EXPECT_EQ(model->browserPatternsCount, 0);
}

TEST_F(BrowserPatternsSectionTest, InDemoModeSavingWritesNothing)
{
    putHomeFile(u".vantle/demo-mode.json"_s, R"({"enabled":true})");
    show<BrowserPatternsSection>();
    click(u"Save Patterns"_s);
    EXPECT_FALSE(homeFile(patternsFile));
}

TEST_F(BrowserPatternsSectionTest, CaretSelectionAndHistoryStayWhenOtherRowsChange)
{
    putHomeFile(patternsFile, R"({"/a":["one"],"/b":["two"]})");
    show<BrowserPatternsSection>();
    type(u"/a"_s, u"x"_s);
    QTest::keyClick(editor(u"/a"_s), Qt::Key_End, Qt::ShiftModifier);
    model->projects.modify([](std::vector<BrowserConfigProject> &projects) {
        projects[1].urls = u"changed"_s;
        projects.insert(projects.begin(), BrowserConfigProject{.root = u"/0"_s});
    });
    processEvents();
    EXPECT_EQ(editor(u"/b"_s)->toPlainText(), u"changed");
    EXPECT_TRUE(editor(u"/a"_s)->hasFocus());
    EXPECT_EQ(editor(u"/a"_s)->textCursor().selectedText(), u"one");
    editor(u"/a"_s)->undo();
    processEvents();
    EXPECT_EQ(urls(u"/a"_s), u"one");
}

TEST_F(BrowserPatternsSectionTest, ClearingThePatternsEmptiesTheRowsAndTheirHistory)
{
    putHomeFile(patternsFile, R"({"/a":["one"]})");
    show<BrowserPatternsSection>();
    type(u"/a"_s, u"x"_s);
    model->clearBrowserPatterns();
    processEvents();
    EXPECT_EQ(editor(u"/a"_s)->toPlainText(), QString());
    editor(u"/a"_s)->undo();
    EXPECT_EQ(urls(u"/a"_s), QString());
}

TEST_F(BrowserPatternsSectionTest, TwoRowsWithTheSameRootAreEditedApartAndTheLaterOneIsSaved)
{
    show<BrowserPatternsSection>();
    model->projects = {{.root = u"/a"_s, .urls = u"first"_s}, {.root = u"/a"_s, .urls = u"second"_s}};
    processEvents();
    const auto editors = page->findChildren<PatternsEditor *>();
    ASSERT_EQ(editors.size(), 2);
    QTest::keyClicks(editors[1], u"x"_s);
    EXPECT_EQ(model->projects.value()[0].urls, u"first");
    EXPECT_EQ(model->projects.value()[1].urls, u"xsecond");
    click(u"Save Patterns"_s);
    EXPECT_EQ(homeFile(patternsFile), "{\n  \"\\/a\" : [\n    \"xsecond\"\n  ]\n}");
}

TEST_F(BrowserPatternsSectionTest, AnEditorIsExposedAsEditableText)
{
    putHomeFile(patternsFile, R"({"/a":["one"]})");
    show<BrowserPatternsSection>();
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(editor(u"/a"_s));
    EXPECT_EQ(accessible->role(), QAccessible::EditableText);
    EXPECT_EQ(accessible->text(QAccessible::Name), u"URL patterns for /a");
    ASSERT_NE(accessible->editableTextInterface(), nullptr);
    accessible->editableTextInterface()->insertText(3, u"!"_s);
    EXPECT_EQ(urls(u"/a"_s), u"one!");
}

TEST_F(BrowserPatternsSectionTest, TabGoesFromEditorToEditorAndOnToSave)
{
    putHomeFile(patternsFile, R"({"/a":["one"],"/b":["two"]})");
    show<BrowserPatternsSection>();
    editor(u"/a"_s)->setFocus();
    QTest::keyClick(editor(u"/a"_s), Qt::Key_Tab);
    EXPECT_TRUE(editor(u"/b"_s)->hasFocus());
    QTest::keyClick(editor(u"/b"_s), Qt::Key_Tab);
    EXPECT_TRUE(button(u"Save Patterns"_s)->hasFocus());
    QTest::keyClick(button(u"Save Patterns"_s), Qt::Key_Backtab);
    EXPECT_TRUE(editor(u"/b"_s)->hasFocus());
    EXPECT_EQ(urls(u"/a"_s), u"one");
}

} // namespace
