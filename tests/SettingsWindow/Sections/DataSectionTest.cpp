#include "SettingsWindow/Sections/DataSection.h"

#include "PageTest.h"

#include <QPushButton>

using namespace Qt::StringLiterals;

namespace
{

class DataSectionTest : public PageTest
{
protected:
    void fill()
    {
        putHomeFile(u".vantle/sessions.json"_s, R"([{"cwd":"/a"},{"cwd":"/b"},{}])");
        putHomeFile(u".claude/browser-patterns.json"_s, R"({"/a":["x"]})");
    }

    QString registry() const { return homePath(u".vantle/sessions.json"_s); }
};

TEST_F(DataSectionTest, ShowsItsRowsTopToBottom)
{
    fill();
    show<DataSection>();
    EXPECT_EQ(texts(),
              QStringList({u"STORAGE"_s, u"Sessions"_s, u"3 stored · "_s + registry(), u"Browser Patterns"_s,
                           u"1 projects configured"_s, u"HOOKS"_s, u"Claude & Codex Hooks"_s,
                           u"Remove the hook entries Vantle installed. The notch overlay will stop "
                           "receiving session events until reinstalled."_s}));
}

TEST_F(DataSectionTest, WithoutSessionsItSaysZeroStoredAndTheFullPath)
{
    show<DataSection>();
    EXPECT_TRUE(shows(u"0 stored · "_s + registry()));
    EXPECT_TRUE(shows(u"0 projects configured"_s));
}

TEST_F(DataSectionTest, TheTwoClearButtonsHaveDifferentAccessibleNames)
{
    show<DataSection>();
    EXPECT_EQ(button(u"Clear Sessions…"_s)->text(), u"Clear…");
    EXPECT_EQ(button(u"Clear Browser Patterns…"_s)->text(), u"Clear…");
    EXPECT_EQ(button(u"Uninstall Hooks…"_s)->text(), u"Uninstall…");
    EXPECT_EQ(button(u"Clear Sessions…"_s)->accessibleDescription(), u"0 stored · "_s + registry());
}

TEST_F(DataSectionTest, ClearingSessionsAsksFirst)
{
    fill();
    show<DataSection>();
    click(u"Clear Sessions…"_s);
    ASSERT_EQ(dialogs.confirmations.size(), 1U);
    const Confirmation &asked = dialogs.confirmations.front();
    EXPECT_EQ(asked.message, u"Clear all sessions?");
    EXPECT_EQ(asked.informative,
              u"The notch will forget every session it knows about. This cannot be undone.");
    EXPECT_EQ(asked.style, Confirmation::Style::warning);
    EXPECT_EQ(asked.action, u"Clear");
    EXPECT_TRUE(posts.paths().isEmpty());
    EXPECT_TRUE(shows(u"3 stored · "_s + registry()));
}

TEST_F(DataSectionTest, ConfirmedClearingSessionsTellsTheAgentShowsZeroAndKeepsTheFile)
{
    fill();
    show<DataSection>();
    dialogs.agree = true;
    click(u"Clear Sessions…"_s);
    EXPECT_EQ(posts.paths(), QStringList{u"/settings/clear-sessions"_s});
    EXPECT_TRUE(shows(u"0 stored · "_s + registry()));
    EXPECT_TRUE(homeFile(u".vantle/sessions.json"_s));
}

TEST_F(DataSectionTest, ClearingPatternsAsksFirst)
{
    fill();
    show<DataSection>();
    click(u"Clear Browser Patterns…"_s);
    ASSERT_EQ(dialogs.confirmations.size(), 1U);
    const Confirmation &asked = dialogs.confirmations.front();
    EXPECT_EQ(asked.message, u"Clear browser patterns?");
    EXPECT_EQ(asked.informative, u"All URL patterns for every project will be removed.");
    EXPECT_EQ(asked.style, Confirmation::Style::warning);
    EXPECT_EQ(asked.action, u"Clear");
    EXPECT_TRUE(homeFile(u".claude/browser-patterns.json"_s));
    EXPECT_TRUE(shows(u"1 projects configured"_s));
}

TEST_F(DataSectionTest, ConfirmedClearingPatternsRemovesTheFileAndEmptiesTheRowsUnderNewIds)
{
    fill();
    show<DataSection>();
    const std::vector<BrowserConfigProject> before = model->projects;
    dialogs.agree = true;
    click(u"Clear Browser Patterns…"_s);
    EXPECT_FALSE(homeFile(u".claude/browser-patterns.json"_s));
    EXPECT_TRUE(shows(u"0 projects configured"_s));
    EXPECT_TRUE(posts.paths().isEmpty());
    ASSERT_EQ(model->projects->size(), before.size());
    for (size_t row = 0; row < before.size(); ++row) {
        EXPECT_EQ(model->projects.value()[row].root, before[row].root);
        EXPECT_EQ(model->projects.value()[row].urls, QString());
        EXPECT_NE(model->projects.value()[row].id, before[row].id);
    }
}

TEST_F(DataSectionTest, UninstallingHooksAsksFirst)
{
    show<DataSection>();
    click(u"Uninstall Hooks…"_s);
    ASSERT_EQ(dialogs.confirmations.size(), 1U);
    const Confirmation &asked = dialogs.confirmations.front();
    EXPECT_EQ(asked.message, u"Uninstall Vantle hooks?");
    EXPECT_EQ(
        asked.informative,
        u"Vantle will remove its entries from ~/.claude/settings.json and ~/.codex/hooks.json and delete "
        "~/.claude/scripts/vantle.sh.\n\nWithout these hooks Vantle will not function as expected: the "
        "notch overlay will stop receiving session events, notifications will not appear, and most "
        "features will be inert until you reinstall.\n\nBackups of the modified files are written next "
        "to the originals.");
    EXPECT_EQ(asked.style, Confirmation::Style::critical);
    EXPECT_EQ(asked.action, u"Uninstall");
    EXPECT_TRUE(posts.paths().isEmpty());
}

TEST_F(DataSectionTest, ConfirmedUninstallingAsksTheAgentAndChangesNothingElse)
{
    fill();
    show<DataSection>();
    const QStringList before = texts();
    dialogs.agree = true;
    click(u"Uninstall Hooks…"_s);
    EXPECT_EQ(posts.paths(), QStringList{u"/settings/uninstall-hooks"_s});
    EXPECT_EQ(texts(), before);
}

TEST_F(DataSectionTest, InDemoModeClearingRestoresTheSampleData)
{
    putHomeFile(u".vantle/demo-mode.json"_s, R"({"enabled":true})");
    show<DataSection>();
    EXPECT_TRUE(shows(u"4 stored · "_s + registry()));
    EXPECT_TRUE(shows(u"3 projects configured"_s));
    dialogs.agree = true;
    click(u"Clear Sessions…"_s);
    click(u"Clear Browser Patterns…"_s);
    EXPECT_EQ(posts.paths(), QStringList{u"/settings/reload-demo-mode"_s});
    EXPECT_TRUE(shows(u"4 stored · "_s + registry()));
    EXPECT_TRUE(shows(u"3 projects configured"_s));
}

TEST_F(DataSectionTest, AnAnswerAfterThePageIsClosedDoesNothing)
{
    show<DataSection>();
    dialogs.agree = true;
    dialogs.meanwhile = [this] { closePage(); };
    button(u"Uninstall Hooks…"_s)->click();
    EXPECT_TRUE(posts.paths().isEmpty());
}

} // namespace
