#include "Model/DemoData.h"

#include "HomeFiles.h"
#include "Model/SettingsModel.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

TEST(DemoData, HasThreeProjectsWithTwoPatternsEach)
{
    const auto &patterns = DemoData::browserPatterns();
    ASSERT_EQ(patterns.size(), 3U);
    for (const char16_t *root : {u"/Users/demo/workspace/vantle", u"/Users/demo/workspace/vantle-browser",
                                 u"/Users/demo/workspace/vantle-usage"}) {
        const auto entry = patterns.find(root);
        ASSERT_NE(entry, patterns.end());
        EXPECT_EQ(entry->second.size(), 2);
        for (qsizetype i = 0; i < entry->second.size(); ++i) {
            const QStringView pattern = entry->second[i];
            EXPECT_TRUE(pattern.endsWith(u'*'));
            EXPECT_TRUE(pattern.contains(u'/'));
            EXPECT_FALSE(pattern.contains(u"://"));
        }
    }
}

TEST(DemoData, HasThreePlanningProjectsThatNeedNotExist)
{
    const auto projects = DemoData::planningProjects();
    ASSERT_EQ(projects.size(), 3U);
    EXPECT_EQ(projects[0].name, u"Vantle Agent"_s);
    EXPECT_EQ(projects[0].path, u"/Users/demo/workspace/vantle"_s);
    EXPECT_EQ(projects[0].todoPath, u"/Users/demo/workspace/vantle/TODO.toml"_s);
    EXPECT_EQ(projects[0].sessionCount, 2);
    EXPECT_EQ(projects[1].name, u"Browser Capture"_s);
    EXPECT_EQ(projects[1].path, u"/Users/demo/workspace/vantle-browser"_s);
    EXPECT_EQ(projects[1].todoPath, u"/Users/demo/workspace/vantle-browser/TODO.toml"_s);
    EXPECT_EQ(projects[1].sessionCount, 1);
    EXPECT_EQ(projects[2].name, u"Usage Analytics"_s);
    EXPECT_EQ(projects[2].path, u"/Users/demo/workspace/vantle-usage"_s);
    EXPECT_EQ(projects[2].todoPath, u"/Users/demo/workspace/vantle-usage/TODO.toml"_s);
    EXPECT_EQ(projects[2].sessionCount, 1);
    for (const PlanningProject &project : projects)
        EXPECT_EQ(project.existsOverride, true);
}

TEST(DemoData, PlanningProjectsAreEqualEachTimeButForTheirIdentifiers)
{
    const auto first = DemoData::planningProjects();
    const auto second = DemoData::planningProjects();
    for (std::size_t i = 0; i < first.size(); ++i) {
        EXPECT_EQ(first[i].name, second[i].name);
        EXPECT_EQ(first[i].path, second[i].path);
        EXPECT_EQ(first[i].sessionCount, second[i].sessionCount);
        EXPECT_NE(first[i].id, second[i].id);
    }
}

TEST(DemoData, RowsOfDemoModeStillHaveTheRegistrysProjects)
{
    putHomeFile(u".vantle/sessions.json"_s, R"([{"cwd":"/z"},{"cwd":"/Users/demo/workspace/vantle"}])");
    const auto rows = SettingsModel::buildProjectList(DemoData::browserPatterns());
    ASSERT_EQ(rows.size(), 4U);
    EXPECT_EQ(rows.back().root, u"/z"_s);
}

} // namespace
