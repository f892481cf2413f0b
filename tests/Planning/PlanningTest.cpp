#include "Planning/Planning.h"

#include "HomeFiles.h"

#include <QDir>
#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

const QString planningFile = u".vantle/planning.json"_s;

std::optional<QString> loadedFrom(const QByteArray &bytes)
{
    putHomeFile(planningFile, bytes);
    return Planning::loadPlanningConfig();
}

TEST(Planning, AMissingFileIsNoRoot)
{
    EXPECT_EQ(Planning::loadPlanningConfig(), std::nullopt);
}

TEST(Planning, TheRootMayBeMissingOrNull)
{
    EXPECT_EQ(loadedFrom("{}"), std::nullopt);
    EXPECT_EQ(loadedFrom(R"({"root": null})"), std::nullopt);
    EXPECT_EQ(loadedFrom(R"({"root": "/plan", "more": 1})"), u"/plan"_s);
}

TEST(Planning, ARootOfAnotherTypeIsNoRoot)
{
    for (const char *bytes : {R"({"root": 5})", R"({"root": ["/plan"]})", R"({"root": true})", R"(["root"])",
                              R"("root")", R"({"root": "/plan"},)", ""})
        EXPECT_EQ(loadedFrom(bytes), std::nullopt) << bytes;
}

TEST(Planning, AStoredEmptyRootStaysAnEmptyText)
{
    const auto root = loadedFrom(R"({"root": ""})");
    ASSERT_TRUE(root);
    EXPECT_EQ(*root, u""_s);
}

TEST(Planning, SavingMakesTheDirectoryAndWritesTheRoot)
{
    EXPECT_TRUE(Planning::save({.root = u"/plan/caf\u00e9"_s}));
    EXPECT_EQ(homeFile(planningFile), "{\n  \"root\" : \"\\/plan\\/caf\u00e9\"\n}");
    EXPECT_EQ(Planning::loadPlanningConfig(), u"/plan/caf\u00e9"_s);
}

TEST(Planning, AnAbsentRootIsLeftOut)
{
    EXPECT_TRUE(Planning::save({}));
    EXPECT_EQ(homeFile(planningFile), "{\n\n}");
}

TEST(Planning, ConfigsAreEqualWhenTheirRootsAre)
{
    EXPECT_EQ(Planning::Config{}, Planning::Config{});
    EXPECT_EQ(Planning::Config{u"/a"_s}, Planning::Config{u"/a"_s});
    EXPECT_NE(Planning::Config{u""_s}, Planning::Config{});
    EXPECT_NE(Planning::Config{u"/a"_s}, Planning::Config{u"/b"_s});
    EXPECT_EQ(Planning::Config{u"/caf\u00e9"_s}, Planning::Config{u"/cafe\u0301"_s});
}

TEST(Planning, ClearingRemovesTheFileAndNeverADirectory)
{
    Planning::clear();
    Planning::save({.root = u"/plan"_s});
    Planning::clear();
    EXPECT_EQ(homeFile(planningFile), std::nullopt);
    ASSERT_TRUE(QDir().mkpath(homePath(planningFile)));
    Planning::clear();
    EXPECT_TRUE(QFileInfo(homePath(planningFile)).isDir());
}

} // namespace
