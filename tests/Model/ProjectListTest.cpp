#include "HomeFiles.h"
#include "Model/SettingsModel.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;
using Persistence::BrowserPatterns;

namespace
{

QStringList rootsOf(const std::vector<BrowserConfigProject> &rows)
{
    QStringList roots;
    for (const BrowserConfigProject &row : rows)
        roots.append(row.root);
    return roots;
}

QStringList rootsOf(const BrowserPatterns &existingConfig)
{
    return rootsOf(SettingsModel::buildProjectList(existingConfig));
}

void putRegistry(const QStringList &directories)
{
    QByteArray bytes = "[";
    for (const QString &directory : directories)
        bytes += "{\"cwd\":\"" + directory.toUtf8() + "\"},";
    bytes.back() = ']';
    putHomeFile(u".vantle/sessions.json"_s, bytes);
}

TEST(ProjectList, IsEmptyWithoutPatternsAndRegistry)
{
    EXPECT_TRUE(SettingsModel::buildProjectList({}).empty());
}

TEST(ProjectList, ARootInBothIsListedOnceWithItsPatterns)
{
    putRegistry({u"/b"_s, u"/a"_s, u"/b"_s});
    const auto rows = SettingsModel::buildProjectList({{u"/a"_s, {u"x"_s, u"y"_s}}});
    EXPECT_EQ(rootsOf(rows), (QStringList{u"/a"_s, u"/b"_s}));
    EXPECT_EQ(rows[0].urls, u"x\ny"_s);
    EXPECT_EQ(rows[1].urls, u""_s);
}

TEST(ProjectList, ARootWithoutPatternsHasAnEmptyText)
{
    EXPECT_EQ(SettingsModel::buildProjectList({{u"/a"_s, {}}}).front().urls, u""_s);
    EXPECT_EQ(SettingsModel::buildProjectList({{u"/a"_s, {u"x"_s}}}).front().urls, u"x"_s);
}

TEST(ProjectList, IsSortedByTheFoldersNameWithoutLetterCase)
{
    putRegistry({u"/a/Zeta"_s, u"/z/alpha"_s, u"/m/Beta/"_s});
    EXPECT_EQ(rootsOf(BrowserPatterns()), (QStringList{u"/z/alpha"_s, u"/m/Beta/"_s, u"/a/Zeta"_s}));
}

TEST(ProjectList, FoldersThatDifferInCaseOnlyKeepTheirOrder)
{
    putRegistry({u"/2/app"_s, u"/1/App"_s, u"/3/APP"_s});
    EXPECT_EQ(rootsOf(BrowserPatterns()), (QStringList{u"/2/app"_s, u"/1/App"_s, u"/3/APP"_s}));
}

TEST(ProjectList, ManyFoldersOfOneNameKeepTheirOrder)
{
    QStringList roots;
    for (int i = 40; i > 0; --i)
        roots.append(u"/%1/app"_s.arg(i));
    putRegistry(roots);
    EXPECT_EQ(rootsOf(BrowserPatterns()), roots);
}

TEST(ProjectList, RootsWithPatternsComeBeforeOthersOfTheSameName)
{
    putRegistry({u"/1/app"_s});
    EXPECT_EQ(rootsOf(BrowserPatterns{{u"/9/app"_s, {}}, {u"/8/App"_s, {}}}),
              (QStringList{u"/8/App"_s, u"/9/app"_s, u"/1/app"_s}));
}

TEST(ProjectList, TiesAmongRootsWithPatternsAreInCodePointOrder)
{
    EXPECT_EQ(rootsOf(BrowserPatterns{{u"/\U0001f600/app"_s, {}}, {u"/\uff61/app"_s, {}}, {u"/a/app"_s, {}}}),
              (QStringList{u"/a/app"_s, u"/\uff61/app"_s, u"/\U0001f600/app"_s}));
}

TEST(ProjectList, TheOrderIsByCodePointOfTheComposedName)
{
    putRegistry({u"/\U0001f600"_s, u"/\uff61"_s, u"/e\u0301"_s, u"/f"_s, u"/\u00c9a"_s, u"/z"_s});
    EXPECT_EQ(rootsOf(BrowserPatterns()),
              (QStringList{u"/f"_s, u"/z"_s, u"/e\u0301"_s, u"/\u00c9a"_s, u"/\uff61"_s, u"/\U0001f600"_s}));
}

TEST(ProjectList, RootsAreComparedAsTextsAndNotAsPaths)
{
    putRegistry({u"/a/"_s, u"/A"_s, u"/a"_s});
    EXPECT_EQ(rootsOf(BrowserPatterns{{u"/a"_s, {}}}).size(), 3);
}

TEST(ProjectList, ADecomposedRootInTheRegistryIsTheComposedOneInTheFile)
{
    putRegistry({u"/cafe\u0301"_s});
    EXPECT_EQ(rootsOf(BrowserPatterns{{u"/caf\u00e9"_s, {}}}), QStringList{u"/caf\u00e9"_s});
}

TEST(ProjectList, OddRootsSortByTheirLastComponent)
{
    putRegistry({u"/"_s, u"///"_s, u"b"_s, u".."_s});
    EXPECT_EQ(rootsOf(BrowserPatterns()), (QStringList{u".."_s, u"/"_s, u"///"_s, u"b"_s}));
}

TEST(ProjectList, EveryRowIsNewEachTime)
{
    const BrowserPatterns patterns{{u"/a"_s, {}}, {u"/b"_s, {}}};
    const auto first = SettingsModel::buildProjectList(patterns);
    const auto second = SettingsModel::buildProjectList(patterns);
    EXPECT_NE(first[0].id, first[1].id);
    EXPECT_NE(first[0].id, second[0].id);
    EXPECT_FALSE(first[0].id.isNull());
}

} // namespace
