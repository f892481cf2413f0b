#include "ChildProcess.h"
#include "HomeFiles.h"
#include "Persistence/BrowserPatterns.h"
#include "Persistence/Persistence.h"
#include "Planning/Planning.h"
#include "Rounds.h"

#include <QElapsedTimer>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

#include <csignal>
#include <random>

using namespace Qt::StringLiterals;

namespace
{

const QString patternsFile = u".claude/browser-patterns.json"_s;

/// Patterns that take a while to write.
Persistence::BrowserPatterns manyPatterns(const QString &pattern)
{
    TextList list;
    for (int i = 0; i < 100; ++i)
        list.append(pattern);
    Persistence::BrowserPatterns patterns;
    for (int i = 0; i < 200; ++i)
        patterns[u"/project/"_s + QString::number(i)] = list;
    return patterns;
}

TEST(Saving, KilledAtAnyMomentLeavesTheOldBytesOrABeginningOfTheNew)
{
    const auto oldPatterns = manyPatterns(u"old"_s);
    const auto newPatterns = manyPatterns(u"a new one"_s);
    Persistence::saveBrowserPatterns(newPatterns);
    const QByteArray newBytes = homeFile(patternsFile).value_or("");
    QElapsedTimer timer;
    timer.start();
    Persistence::saveBrowserPatterns(oldPatterns);
    const qint64 saving = timer.nsecsElapsed();
    const QByteArray oldBytes = homeFile(patternsFile).value_or("");
    ASSERT_GT(newBytes.size(), 100000);

    std::mt19937_64 random(3);
    int killed = 0;
    for (int round = 0; round < rounds(50, 1000); ++round) {
        putHomeFile(patternsFile, oldBytes);
        const pid_t child = ::fork();
        ASSERT_GE(child, 0);
        if (child == 0)
            ::_exit(Persistence::saveBrowserPatterns(newPatterns) ? 0 : 1);
        const auto moment = qint64(random() % std::uint64_t(2 * saving));
        timer.start();
        while (timer.nsecsElapsed() < moment) {
        }
        ::kill(child, SIGKILL);
        int status = 0;
        ASSERT_EQ(::waitpid(child, &status, 0), child);
        killed += WIFSIGNALED(status) ? 1 : 0;
        const QByteArray bytes = homeFile(patternsFile).value_or("missing");
        ASSERT_TRUE(bytes == oldBytes || newBytes.startsWith(bytes)) << "after " << moment << " ns";
    }
    EXPECT_GT(killed, 0);
}

TEST(Saving, AFullDiskFailsTheSaveAndTheNextOneWorks)
{
    Persistence::saveBrowserPatterns({{u"/a"_s, {u"x"_s}}});
    EXPECT_TRUE(inChildProcess([] {
        const rlimit limit{1000, RLIM_INFINITY};
        return ::setrlimit(RLIMIT_FSIZE, &limit) == 0 &&
               !Persistence::saveBrowserPatterns(manyPatterns(u"x"_s)) &&
               Persistence::loadBrowserPatterns().empty() &&
               Persistence::saveBrowserPatterns({{u"/b"_s, {u"y"_s}}});
    }));
    EXPECT_EQ(Persistence::loadBrowserPatterns(), (Persistence::BrowserPatterns{{u"/b"_s, {u"y"_s}}}));
}

TEST(Saving, KeepsTheModeAndTheOwnerOfAFile)
{
    putHomeFile(u".vantle/planning.json"_s, "{}");
    const QByteArray path = homePath(u".vantle/planning.json"_s).toUtf8();
    ASSERT_EQ(::chmod(path.constData(), 0604), 0);
    const bool mayChangeOwner = ::geteuid() == 0;
    ASSERT_TRUE(!mayChangeOwner || ::chown(path.constData(), strangersId, strangersId) == 0);
    struct stat before {
    };
    ASSERT_EQ(::stat(path.constData(), &before), 0);
    EXPECT_TRUE(Planning::save({.root = u"/plan"_s}));
    struct stat after {
    };
    ASSERT_EQ(::stat(path.constData(), &after), 0);
    EXPECT_EQ(after.st_mode, before.st_mode);
    EXPECT_EQ(after.st_uid, before.st_uid);
    EXPECT_EQ(after.st_gid, before.st_gid);
    EXPECT_EQ(after.st_ino, before.st_ino);
}

TEST(Saving, TwiceInARowLeavesTheLast)
{
    Persistence::saveTypeface(u"jetbrains-mono"_s);
    Persistence::saveTypeface(u"system"_s);
    EXPECT_EQ(homeFile(u".vantle/typeface.json"_s), "{\n  \"name\" : \"system\"\n}");
}

TEST(Loading, TakesAValidFileOfAHundredMegabytesLikeAnyOther)
{
    putHomeFile(u".vantle/typeface.json"_s,
                "{\"x\":\"" + QByteArray(100000000, 'x') + "\",\"name\":\"system\"}");
    EXPECT_EQ(Persistence::loadTypeface(), TypefaceOption::system);
    putHomeFile(u".vantle/typeface.json"_s,
                "{\"x\":\"" + QByteArray(100000000, 'x') + "\n\",\"name\":\"system\"}");
    EXPECT_EQ(Persistence::loadTypeface(), TypefaceOption::jetbrainsMono);
}

TEST(Loading, AFileNobodyMayReadGivesTheDefault)
{
    putHomeFile(u".vantle/green-screen.json"_s, R"({"enabled":true})");
    ASSERT_EQ(::chmod(testHome().toUtf8().constData(), 0755), 0);
    ASSERT_TRUE(asStranger([] { return Persistence::loadGreenScreen(); }));
    ASSERT_EQ(::chmod(homePath(u".vantle/green-screen.json"_s).toUtf8().constData(), 0), 0);
    EXPECT_TRUE(
        asStranger([] { return !Persistence::loadGreenScreen() && !Persistence::saveGreenScreen(false); }));
    EXPECT_EQ(::chmod(homePath(u".vantle/green-screen.json"_s).toUtf8().constData(), 0600), 0);
    EXPECT_EQ(homeFile(u".vantle/green-screen.json"_s), R"({"enabled":true})");
}

} // namespace
