#include "SettingsWindow/Sections/AboutSection.h"

#include "ChildProcess.h"
#include "Components/PathRow.h"
#include "Components/Text/Label.h"
#include "Finding.h"
#include "Foundation/Seam.h"
#include "HomeFiles.h"
#include "Platform/Desktop/Pasteboard.h"
#include "Platform/Files/Home.h"

#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

struct FakePasteboard final : Pasteboard {
    QStringList copied;

    void setText(const QString &text) override { copied << text; }
};

/// What a row shows: its label and its path.
QStringList texts(const PathRow &row)
{
    QStringList shown;
    for (const Label *label : row.findChildren<Label *>())
        shown << label->text();
    return shown;
}

TEST(AboutSection, ShowsTheVersionOfTheBundle)
{
    EXPECT_EQ(AboutSection::version({.executablePath = {}, .resourceDirectory = {}, .version = u"2.7.1"_s}),
              u"2.7.1"_s);
    AboutSection page({.executablePath = {}, .resourceDirectory = {}, .version = u"2.7.1"_s});
    EXPECT_TRUE(named<Label>(page, u"Settings helper · version 2.7.1"_s));
}

TEST(AboutSection, ABundleWithoutVersionIsDev)
{
    AboutSection page(Bundle{});
    EXPECT_TRUE(named<Label>(page, u"Vantle"_s));
    EXPECT_TRUE(named<Label>(page, u"Liquid-Glass notification overlays for Claude Code."_s));
    EXPECT_TRUE(named<Label>(page, u"Settings helper · version dev"_s));
}

TEST(AboutSection, ListsThePathsInOrder)
{
    AboutSection page(
        {.executablePath = u"/opt/vantle/bin/vantle-settings"_s, .resourceDirectory = {}, .version = {}});
    const QString home = testHome();
    QList<QStringList> shown;
    for (const PathRow *row : page.findChildren<PathRow *>())
        shown << texts(*row);
    EXPECT_EQ(shown, (QList<QStringList>{
                         {u"Settings Helper"_s, u"/opt/vantle/bin/vantle-settings"_s},
                         {u"Sessions"_s, home + u"/.vantle/sessions.json"_s},
                         {u"Browser Patterns"_s, home + u"/.claude/browser-patterns.json"_s},
                         {u"Planning Config"_s, home + u"/.vantle/planning.json"_s},
                         {u"Green-Screen Mode"_s, home + u"/.vantle/green-screen.json"_s},
                         {u"Automatic Updates"_s, home + u"/.vantle/updates.json"_s},
                         {u"LaunchAgent"_s, home + u"/Library/LaunchAgents/com.vantle.agent.plist"_s},
                     }));
}

QStringList lastPaths()
{
    AboutSection page(Bundle{});
    QStringList paths;
    for (const PathRow *row : page.findChildren<PathRow *>())
        paths << texts(*row).last();
    return paths.sliced(paths.size() - 2);
}

TEST(AboutSection, JoinsEveryPathWithOneSlash)
{
    const QByteArray home = qgetenv("HOME");
    qputenv("HOME", "/");
    const QStringList atTheRoot = lastPaths();
    qputenv("HOME", "/home/me/");
    const QStringList behindASlash = lastPaths();
    qputenv("HOME", home);
    EXPECT_EQ(atTheRoot,
              (QStringList{u"/.vantle/updates.json"_s, u"/Library/LaunchAgents/com.vantle.agent.plist"_s}));
    EXPECT_EQ(behindASlash, (QStringList{u"/home/me/.vantle/updates.json"_s,
                                         u"/home/me/Library/LaunchAgents/com.vantle.agent.plist"_s}));
}

TEST(AboutSection, WithoutAHomeThePathsAreThoseBelowIt)
{
    EXPECT_TRUE(asStranger([] {
        ::unsetenv("HOME");
        const auto home = homeDirectory(); // an ordinary user still has one, from the password database
        const QString start = home ? *home + u'/' : QString();
        return lastPaths() == QStringList{start + u".vantle/updates.json"_s,
                                          start + u"Library/LaunchAgents/com.vantle.agent.plist"_s};
    }));
}

TEST(AboutSection, AnUnknownExecutableIsSaid)
{
    AboutSection page(Bundle{});
    EXPECT_EQ(texts(*page.findChild<PathRow *>()), (QStringList{u"Settings Helper"_s, u"(unknown)"_s}));
}

TEST(AboutSection, CopyingPutsTheAbsolutePathOnThePasteboard)
{
    FakePasteboard pasteboard;
    const Seam<Pasteboard>::Replacement replaced(pasteboard);
    AboutSection page(Bundle{});
    QTest::mouseClick(named<QPushButton>(page, u"Copy path of LaunchAgent"_s), Qt::LeftButton);
    EXPECT_EQ(pasteboard.copied, QStringList{testHome() + u"/Library/LaunchAgents/com.vantle.agent.plist"_s});
}

} // namespace
