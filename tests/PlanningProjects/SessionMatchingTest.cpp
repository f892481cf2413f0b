#include "PlanningProjects/SessionMatching.h"

#include "Foundation/Text.h"
#include "Platform/Files/Path.h"

#include <gtest/gtest.h>

#include <random>

using namespace Qt::StringLiterals;
using Persistence::SessionDirectory;
using PlanningProjects::countSessions;

namespace
{

/// The count by its definition: each session is compared with the project.
std::int64_t straightforwardCount(const QString &projectPath, const std::vector<SessionDirectory> &sessions)
{
    if (projectPath.isEmpty())
        return 0;
    const auto components = [](const QString &path) {
        QStringList names = Path::standardizing(path).split(u'/');
        if (names.back().isEmpty())
            names.removeLast(); // "/" is split into two empty names
        return names;
    };
    const QStringList project = components(projectPath);
    std::int64_t count = 0;
    for (const auto &[path, number] : sessions) {
        const QStringList directory = components(path);
        const bool isInside =
            std::equal(project.begin(), project.end(), directory.begin(),
                       directory.begin() + qMin(directory.size(), project.size()),
                       [](const QString &a, const QString &b) { return Text::equal(a, b); });
        count += isInside ? number : 0;
    }
    return count;
}

std::int64_t countOf(const QString &projectPath, const std::vector<SessionDirectory> &sessions)
{
    const auto count = countSessions({projectPath}, sessions).front();
    EXPECT_EQ(count, straightforwardCount(projectPath, sessions)) << projectPath.toStdString();
    return count;
}

TEST(SessionMatching, CountsSessionsInTheProjectAndBelow)
{
    EXPECT_EQ(
        countOf(
            u"/work/app"_s,
            {{u"/work/app"_s, 2}, {u"/work/app/src"_s, 3}, {u"/work/application"_s, 7}, {u"/work"_s, 11}}),
        5);
}

TEST(SessionMatching, ExpandsTheHomeOnBothSides)
{
    qputenv("HOME", "/Users/u");
    EXPECT_EQ(countOf(u"~/code/app"_s,
                      {{u"/Users/u/code/app"_s, 1}, {u"~/code/app/sub"_s, 1}, {u"/Users/u/code/app2"_s, 1}}),
              2);
    EXPECT_EQ(
        countOf(u"~"_s, {{u"/Users/u"_s, 1}, {u"~/"_s, 1}, {u"/Users/u2"_s, 1}, {u"~nobody-at-all"_s, 1}}),
        2);
}

TEST(SessionMatching, LetterCaseCounts)
{
    EXPECT_EQ(countOf(u"/Work/App"_s, {{u"/work/app"_s, 1}}), 0);
}

TEST(SessionMatching, StandardisesBothSides)
{
    EXPECT_EQ(countOf(u"/work/app/./"_s, {{u"/work/x/../app/lib"_s, 1}, {u"//work//app//"_s, 1}}), 2);
    EXPECT_EQ(countOf(u"/../a/b/.."_s, {{u"/a"_s, 1}, {u"/a/b"_s, 1}}), 2);
}

TEST(SessionMatching, TheRootHasEveryAbsoluteDirectory)
{
    EXPECT_EQ(countOf(u"/"_s, {{u"/"_s, 1}, {u"/a"_s, 1}, {u"/a/b"_s, 1}, {u"a"_s, 1}, {u"."_s, 1}}), 3);
}

TEST(SessionMatching, ARelativePathMatchesItsOwnSpellingOnly)
{
    EXPECT_EQ(countOf(u"app"_s, {{u"app"_s, 1}, {u"./app/x"_s, 1}, {u"/app"_s, 1}, {u"work/app"_s, 1}}), 2);
    EXPECT_EQ(countOf(u"."_s, {{u"x/.."_s, 1}, {u"x"_s, 1}}), 1);
    EXPECT_EQ(countOf(u".."_s, {{u"../x"_s, 1}, {u"x"_s, 1}}), 1);
}

TEST(SessionMatching, AnEmptyPathHasNoSessions)
{
    EXPECT_EQ(countOf(u""_s, {{u"/"_s, 1}, {u"."_s, 1}}), 0);
}

TEST(SessionMatching, CanonicallyEquivalentPathsAreOneDirectory)
{
    EXPECT_EQ(countOf(u"/caf\u00e9"_s, {{u"/cafe\u0301"_s, 1}, {u"/cafe\u0301/x"_s, 1}, {u"/cafe"_s, 1}}), 2);
    EXPECT_EQ(countOf(u"/cafe"_s, {{u"/cafe\u0301"_s, 1}, {u"/cafe/\u0301"_s, 1}}), 1);
}

TEST(SessionMatching, EqualAndNestedProjectsEachCount)
{
    EXPECT_EQ(countSessions({u"/a"_s, u"/a/b"_s, u"/a/"_s, u""_s, u"/a/b/c"_s, u"/"_s},
                            {{u"/a/b"_s, 3}, {u"/a"_s, 1}}),
              (std::vector<std::int64_t>{4, 3, 4, 0, 0, 4}));
}

TEST(SessionMatching, PathsWithTheSameHashAreDifferentProjects)
{
    const QString one = u"/\u6F99\u9DAD\u92D9\u51C0\u4E00"_s;
    const QString other = u"/\u7FD1\u55D6\u7E5C\u528F\u5F21"_s; // the same 64 bits of FNV-1a
    EXPECT_EQ(countSessions({one, other}, {{one, 2}, {other, 3}}), (std::vector<std::int64_t>{2, 3}));
}

TEST(SessionMatching, ADirectoryMayBeOneUnitLongerThanEveryProject)
{
    const QString project = u'/' + QString(62, u'a');
    EXPECT_EQ(countOf(project, {{project + u'a', 2}, {project, 3}}), 3);
}

TEST(SessionMatching, WithoutSessionsOrProjectsThereIsNothingToCount)
{
    EXPECT_EQ(countSessions({}, {{u"/a"_s, 1}}), std::vector<std::int64_t>());
    EXPECT_EQ(countSessions({u"/a"_s}, {}), std::vector<std::int64_t>{0});
}

TEST(SessionMatching, GivesWhatTheStraightforwardDefinitionGives)
{
    qputenv("HOME", "/home/u");
    const std::vector<QString> parts = {u"a"_s,  u"b"_s,      u"ab"_s,      u"home"_s, u"u"_s, u"."_s,
                                        u".."_s, u"\u00e9"_s, u"e\u0301"_s, u"A"_s,    u""_s,  u"\u0301"_s};
    std::mt19937 random(11);
    const auto pick = [&random](std::size_t bound) { return std::size_t(random()) % bound; };
    const auto path = [&] {
        static const std::vector<QString> starts = {u"/"_s, u"/"_s,  u"~/"_s,      u"~"_s,
                                                    u""_s,  u"//"_s, u"~nobody/"_s};
        QString made = starts[pick(starts.size())];
        for (std::size_t left = pick(5); left > 0; --left)
            made += parts[pick(parts.size())] + (left > 1 || pick(4) == 0 ? u"/"_s : u""_s);
        return made;
    };
    for (int round = 0; round < 400; ++round) {
        QStringList projects;
        std::vector<SessionDirectory> sessions;
        for (std::size_t left = pick(12); left > 0; --left)
            projects.append(path());
        for (std::size_t left = pick(30); left > 0; --left) {
            if (const QString directory = path(); !directory.isEmpty())
                sessions.push_back({directory, std::int64_t(pick(4))});
        }
        const auto counts = countSessions(projects, sessions);
        ASSERT_EQ(counts.size(), std::size_t(projects.size()));
        for (qsizetype i = 0; i < projects.size(); ++i)
            ASSERT_EQ(counts[std::size_t(i)], straightforwardCount(projects[i], sessions))
                << projects[i].toStdString();
    }
}

} // namespace
