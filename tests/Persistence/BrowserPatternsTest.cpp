#include "Persistence/BrowserPatterns.h"

#include "HomeFiles.h"
#include "RecordingFileSystem.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using Persistence::BrowserPatterns;

namespace
{

const QString patternsFile = u".claude/browser-patterns.json"_s;

BrowserPatterns patternsOf(const std::vector<std::pair<QString, QString>> &rows)
{
    std::vector<BrowserConfigProject> projects;
    projects.reserve(rows.size());
    for (const auto &[root, urls] : rows)
        projects.push_back({.root = root, .urls = urls});
    return Persistence::browserPatterns(projects);
}

TEST(BrowserPatterns, AMissingFileHasNoPatterns)
{
    EXPECT_TRUE(Persistence::loadBrowserPatterns().empty());
}

TEST(BrowserPatterns, ReadsEveryRootWithItsPatternsInOrder)
{
    putHomeFile(patternsFile, R"({"/b":["y","x"],"/a":[],"":[""]})");
    EXPECT_EQ(Persistence::loadBrowserPatterns(),
              (BrowserPatterns{{u""_s, {u""_s}}, {u"/a"_s, {}}, {u"/b"_s, {u"y"_s, u"x"_s}}}));
}

TEST(BrowserPatterns, OneBadValueDiscardsTheWholeFile)
{
    for (const char *bytes : {R"({"/a":["x",1]})", R"({"/a":["x"],"/b":"y"})", R"({"/a":["x"],"/b":null})",
                              R"({"/a":[null]})", R"({"/a":[["x"]]})", R"({"/a":{}})", R"([["x"]])", "[]",
                              "null", "\"/a\"", R"({"/a":["x"]}})", ""}) {
        putHomeFile(patternsFile, bytes);
        EXPECT_TRUE(Persistence::loadBrowserPatterns().empty()) << bytes;
    }
}

TEST(BrowserPatterns, OfEqualRootsTheFirstWins)
{
    putHomeFile(patternsFile, "{\"/caf\u00e9\":[\"x\"],\"/cafe\u0301\":[\"y\"],\"/a\":[],\"/a\":7}");
    EXPECT_EQ(Persistence::loadBrowserPatterns(),
              (BrowserPatterns{{u"/a"_s, {}}, {u"/caf\u00e9"_s, {u"x"_s}}}));
    EXPECT_EQ(Persistence::loadBrowserPatterns().rbegin()->first, u"/caf\u00e9"_s);
}

TEST(BrowserPatterns, ARowWithoutPatternsAddsNoRoot)
{
    EXPECT_TRUE(patternsOf({{u"/a"_s, u""_s}, {u"/b"_s, u"\n  \t\u3000\n"_s}}).empty());
}

TEST(BrowserPatterns, LinesAreTrimmedAndEmptyOnesDropped)
{
    EXPECT_EQ(patternsOf({{u"/a"_s, u"  */docs/*  \n"_s}}), (BrowserPatterns{{u"/a"_s, {u"*/docs/*"_s}}}));
    EXPECT_EQ(patternsOf({{u"/a"_s, u"x\n\n\u00a0y z\u200b\n"_s}}),
              (BrowserPatterns{{u"/a"_s, {u"x"_s, u"y z"_s}}}));
}

TEST(BrowserPatterns, OnlyLineFeedsEndALineSoACarriageReturnStays)
{
    EXPECT_EQ(patternsOf({{u"/a"_s, u"x\r\ny\rz\u2028w\n\r"_s}}),
              (BrowserPatterns{{u"/a"_s, {u"x\r"_s, u"y\rz\u2028w"_s, u"\r"_s}}}));
}

TEST(BrowserPatterns, ALineFeedEndsALineWhateverFollowsIt)
{
    EXPECT_EQ(patternsOf({{u"/a"_s, u"x\n\u0301y"_s}}), (BrowserPatterns{{u"/a"_s, {u"x"_s, u"\u0301y"_s}}}));
}

TEST(BrowserPatterns, TheLaterRowWithTheSameRootWins)
{
    EXPECT_EQ(patternsOf({{u"/a"_s, u"x"_s}, {u"/a"_s, u"y\nz"_s}}),
              (BrowserPatterns{{u"/a"_s, {u"y"_s, u"z"_s}}}));
    EXPECT_EQ(patternsOf({{u"/a"_s, u"x"_s}, {u"/a"_s, u" "_s}}), (BrowserPatterns{{u"/a"_s, {u"x"_s}}}));
    const auto composed = patternsOf({{u"/e\u0301"_s, u"x"_s}, {u"/\u00e9"_s, u"y"_s}});
    ASSERT_EQ(composed.size(), 1U);
    EXPECT_EQ(composed.begin()->first, u"/e\u0301"_s);
    EXPECT_EQ(composed.begin()->second, TextList{u"y"_s});
}

TEST(BrowserPatterns, AreWrittenInOrderOfTheirRootsWithSlashesEscaped)
{
    EXPECT_TRUE(Persistence::saveBrowserPatterns({{u"/b"_s, {u"y"_s}}, {u"/a"_s, {u"x/*"_s, u"w"_s}}}));
    EXPECT_EQ(homeFile(patternsFile), "{\n  \"\\/a\" : [\n    \"x\\/*\",\n    \"w\"\n  ],\n"
                                      "  \"\\/b\" : [\n    \"y\"\n  ]\n}");
}

TEST(BrowserPatterns, TheOrderInTheFileIsByTheBytesOfTheRoots)
{
    EXPECT_TRUE(Persistence::saveBrowserPatterns({{u"\U0001f600"_s, {u"x"_s}}, {u"\uff61"_s, {u"y"_s}}}));
    const QByteArray bytes = homeFile(patternsFile).value_or("");
    EXPECT_LT(bytes.indexOf("\uff61"), bytes.indexOf("\U0001f600"));
}

TEST(BrowserPatterns, AnEmptyMapIsWrittenNotRemoved)
{
    EXPECT_TRUE(Persistence::saveBrowserPatterns({}));
    EXPECT_EQ(homeFile(patternsFile), "{\n\n}");
    EXPECT_TRUE(Persistence::saveBrowserPatterns(patternsOf({{u"/a"_s, u" "_s}})));
    EXPECT_EQ(homeFile(patternsFile), "{\n\n}");
}

TEST(BrowserPatterns, WhatWasSavedIsLoaded)
{
    const BrowserPatterns patterns{{u"/caf\u00e9 \"x\"\\"_s, {u"\r"_s, u"a b"_s}}, {u"~/p"_s, {u"*"_s}}};
    EXPECT_TRUE(Persistence::saveBrowserPatterns(patterns));
    EXPECT_EQ(Persistence::loadBrowserPatterns(), patterns);
}

TEST(BrowserPatterns, ClearingRemovesTheFileAndLeavesTheDirectory)
{
    Persistence::clearBrowserPatterns();
    putHomeFile(patternsFile, "{}");
    putHomeFile(u".claude/other"_s, "x");
    Persistence::clearBrowserPatterns();
    EXPECT_EQ(QDir(homePath(u".claude"_s)).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              QStringList{u"other"_s});
}

TEST(BrowserPatterns, ClearingRemovesALinkAndNotItsTarget)
{
    putHomeFile(u"dotfiles/patterns.json"_s, R"({"/a":["x"]})");
    ASSERT_TRUE(QDir().mkpath(homePath(u".claude"_s)));
    ASSERT_TRUE(QFile::link(u"../dotfiles/patterns.json"_s, homePath(patternsFile)));
    Persistence::clearBrowserPatterns();
    EXPECT_FALSE(QFileInfo(homePath(patternsFile)).isSymLink());
    EXPECT_EQ(homeFile(u"dotfiles/patterns.json"_s), R"({"/a":["x"]})");
}

TEST(BrowserPatterns, ClearingNeverRemovesADirectory)
{
    ASSERT_TRUE(QDir().mkpath(homePath(patternsFile)));
    Persistence::clearBrowserPatterns();
    EXPECT_TRUE(QFileInfo(homePath(patternsFile)).isDir());
}

TEST(BrowserPatterns, ASaveMakesTheDirectoryReadsAndCopiesTheOldFileThenWrites)
{
    RecordingFileSystem files;
    EXPECT_TRUE(Persistence::saveBrowserPatterns({}));
    EXPECT_EQ(
        files.notes,
        (QStringList{u"create "_s + homePath(u".claude"_s), u"read "_s + homePath(patternsFile),
                     u"keep a copy of "_s + homePath(patternsFile), u"write "_s + homePath(patternsFile)}));
}

} // namespace
