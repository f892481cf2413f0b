#include "PlanningProjects/PlanningProjects.h"

#include "HomeFiles.h"
#include "RecordingFileSystem.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

const QString registry = u".vantle/sessions.json"_s;

std::vector<PlanningProject> projectsOf(const QByteArray &manifest)
{
    putHomeFile(u"plan/projects.toml"_s, manifest);
    return PlanningProjects::load(homePath(u"plan"_s));
}

TEST(PlanningProjects, TheManifestsPathBeginsWithTheRootAsWritten)
{
    EXPECT_EQ(PlanningProjects::tomlPath(std::nullopt), std::nullopt);
    EXPECT_EQ(PlanningProjects::tomlPath(u""_s), std::nullopt);
    EXPECT_EQ(PlanningProjects::tomlPath(u"/plan"_s), u"/plan/projects.toml"_s);
    EXPECT_EQ(PlanningProjects::tomlPath(u"/plan/"_s), u"/plan/projects.toml"_s);
    EXPECT_EQ(PlanningProjects::tomlPath(u"/"_s), u"/projects.toml"_s);
    EXPECT_EQ(PlanningProjects::tomlPath(u"~/plan"_s), u"~/plan/projects.toml"_s);
    EXPECT_EQ(PlanningProjects::tomlPath(u"/a/../plan"_s), u"/a/../plan/projects.toml"_s);
}

TEST(PlanningProjects, WithoutARootNothingIsRead)
{
    RecordingFileSystem files;
    EXPECT_TRUE(PlanningProjects::load(std::nullopt).empty());
    EXPECT_TRUE(PlanningProjects::load(u""_s).empty());
    EXPECT_EQ(files.notes, QStringList());
}

TEST(PlanningProjects, WithoutAManifestTheRegistryIsNotRead)
{
    RecordingFileSystem files;
    EXPECT_TRUE(PlanningProjects::load(homePath(u"plan"_s)).empty());
    EXPECT_EQ(files.notes, QStringList{u"read "_s + homePath(u"plan/projects.toml"_s)});
}

TEST(PlanningProjects, TheRegistryIsReadOnceEvenWhenTheManifestHasNoBlock)
{
    putHomeFile(u"plan/projects.toml"_s, "# nothing yet\n");
    RecordingFileSystem files;
    EXPECT_TRUE(PlanningProjects::load(homePath(u"plan"_s)).empty());
    EXPECT_EQ(files.notes,
              (QStringList{u"read "_s + homePath(u"plan/projects.toml"_s), u"read "_s + homePath(registry)}));
}

TEST(PlanningProjects, EveryBlockIsAProjectWithItsTextsAsWritten)
{
    const auto projects =
        projectsOf("[[projects]]\nname = \"A\"\npath = '~/a/../b/'\ntodo_path = x\nother = y\n"
                   "[[projects]]\nname = \"A\"\n[[projects]]\nname=\n");
    ASSERT_EQ(projects.size(), 3U);
    EXPECT_EQ(projects[0].name, u"A"_s);
    EXPECT_EQ(projects[0].path, u"~/a/../b/"_s);
    EXPECT_EQ(projects[0].todoPath, u"x"_s);
    EXPECT_EQ(projects[0].existsOverride, std::nullopt);
    EXPECT_EQ(projects[1].name, u"A"_s);
    EXPECT_EQ(projects[1].path, u""_s);
    EXPECT_EQ(projects[2].name, u""_s);
}

TEST(PlanningProjects, ABlockWithoutANameIsUnnamed)
{
    putHomeFile(registry, R"([{"cwd":"/"}])");
    for (const char *manifest :
         {"[[projects]]", "[[projects]]\ntodo_path = /t", "[[projects]]\n\"name\" = x"}) {
        const auto projects = projectsOf(manifest);
        ASSERT_EQ(projects.size(), 1U) << manifest;
        EXPECT_EQ(projects[0].name, u"(unnamed)"_s);
        EXPECT_EQ(projects[0].path, u""_s);
        EXPECT_EQ(projects[0].sessionCount, 0);
    }
}

TEST(PlanningProjects, CountsTheSessionsOfEachProject)
{
    qputenv("HOME", homePath(u"u"_s).toUtf8());
    putHomeFile(registry, "[{\"cwd\":\"" + homePath(u"code/app"_s).toUtf8() +
                              "\"},{\"cwd\":\"~/code/app/sub\"},{\"cwd\":\"~/code/app2\"},{\"cwd\":42},{}]");
    const auto projects = projectsOf("[[projects]]\npath = ~/code/app\n[[projects]]\npath = ~/code\n");
    ASSERT_EQ(projects.size(), 2U);
    EXPECT_EQ(projects[0].sessionCount, 2);
    EXPECT_EQ(projects[1].sessionCount, 3);
}

TEST(PlanningProjects, ARegistryThatIsNoArrayOfObjectsCountsNothing)
{
    for (const char *bytes : {R"({"cwd":"/a"})", R"([{"cwd":"/a"},"x"])", R"([{"cwd":"/a"}],)", ""}) {
        putHomeFile(registry, bytes);
        const auto projects = projectsOf("[[projects]]\npath = /a\n");
        ASSERT_EQ(projects.size(), 1U);
        EXPECT_EQ(projects[0].sessionCount, 0) << bytes;
    }
}

TEST(PlanningProjects, AByteOrderMarkBeforeTheFirstBlockHidesNothing)
{
    const QByteArray mark = "\xef\xbb\xbf";
    const QByteArray block = "[[projects]]\nname = a\n";
    EXPECT_EQ(projectsOf(mark + block).size(), 1U);
    EXPECT_EQ(projectsOf(mark + mark + block).size(), 0U) << "only one is dropped";
    EXPECT_EQ(projectsOf(block + mark + block).size(), 1U) << "at the start only";
    EXPECT_EQ(projectsOf(mark).size(), 0U);
}

TEST(PlanningProjects, AManifestThatIsNotUtf8HasNoProjects)
{
    EXPECT_TRUE(projectsOf("[[projects]]\nname = \xff\n").empty());
    EXPECT_TRUE(projectsOf("[[projects]]\nname = a\n\xc3").empty());
}

TEST(PlanningProjects, LoadingTwiceGivesEqualProjectsWithFreshIdentifiers)
{
    const QByteArray manifest = "[[projects]]\nname = a\npath = /a\n";
    const auto first = projectsOf(manifest);
    const auto second = projectsOf(manifest);
    ASSERT_EQ(first.size(), 1U);
    ASSERT_EQ(second.size(), 1U);
    EXPECT_EQ(first[0].name, second[0].name);
    EXPECT_EQ(first[0].path, second[0].path);
    EXPECT_EQ(first[0].sessionCount, second[0].sessionCount);
    EXPECT_NE(first[0].id, second[0].id);
}

TEST(PlanningProjects, ARootWithATildeIsADirectoryOfThatName)
{
    ASSERT_TRUE(QDir().mkpath(homePath(u"elsewhere"_s)));
    ASSERT_TRUE(QDir::setCurrent(homePath(u"elsewhere"_s)));
    putHomeFile(u"elsewhere/~/plan/projects.toml"_s, "[[projects]]\n");
    putHomeFile(u"plan/projects.toml"_s, "[[projects]]\n[[projects]]\n");
    EXPECT_EQ(PlanningProjects::load(u"~/plan"_s).size(), 1U);
    QDir::setCurrent(u"/"_s);
}

} // namespace
