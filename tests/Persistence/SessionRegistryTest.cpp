#include "Persistence/SessionRegistry.h"

#include "HomeFiles.h"
#include "RecordingFileSystem.h"

#include <QDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

const QString registry = u".vantle/sessions.json"_s;

struct Expected {
    std::int64_t count = 0;
    QStringList projects;
};

void expectRead(const QByteArray &bytes, const Expected &expected)
{
    putHomeFile(registry, bytes);
    EXPECT_EQ(Persistence::sessionsCount(), expected.count) << bytes.toStdString();
    EXPECT_EQ(Persistence::knownProjects(), expected.projects) << bytes.toStdString();
}

TEST(SessionRegistry, AMissingFileCountsNothingAndKnowsNoProjects)
{
    EXPECT_EQ(Persistence::sessionsCount(), 0);
    EXPECT_EQ(Persistence::knownProjects(), QStringList());
}

TEST(SessionRegistry, AnEmptyArrayCountsNothing)
{
    expectRead("[]", {0, {}});
    expectRead(" [] ", {0, {}});
}

TEST(SessionRegistry, ListsEachDirectoryOnceInOrderOfFirstAppearance)
{
    expectRead(R"([{"cwd":"/b"},{"cwd":"/a"},{"cwd":"/b"}])", {3, {u"/b"_s, u"/a"_s}});
}

TEST(SessionRegistry, SkipsSessionsWithoutADirectoryButCountsThem)
{
    expectRead(R"([{"id":1},{"cwd":""}])", {2, {}});
    expectRead(R"([{},{"cwd":7},{"cwd":null},{"cwd":["/x"]},{"cwd":"/a"}])", {5, {u"/a"_s}});
}

TEST(SessionRegistry, OneElementThatIsNoObjectEmptiesTheListButNotTheCount)
{
    expectRead(R"([{"cwd":"/a"},"x"])", {2, {}});
    expectRead(R"([{"cwd":"/a"},null,[]])", {3, {}});
    expectRead("[1,\"x\",null]", {3, {}});
}

TEST(SessionRegistry, AnythingButAnArrayCountsNothing)
{
    for (const char *bytes : {R"({"cwd":"/a"})", "{}", "\"x\"", "true", "5", "null"})
        expectRead(bytes, {0, {}});
}

TEST(SessionRegistry, AnythingInvalidAnywhereCountsNothing)
{
    for (const char *bytes :
         {R"([{"cwd":"/a"}]x)", R"([{"cwd":"/a"},])", R"([{"cwd":"/a"})", R"([{"cwd":"/a"}{"cwd":"/a"}])", "",
          R"([{"cwd":"/a","n":012}])", "[{\"cwd\":\"/a\",\"t\":\"\xff\"}]", R"([{"cwd":"/a","s":"\uD800"}])"})
        expectRead(bytes, {0, {}});
}

TEST(SessionRegistry, DirectoriesAreNotStandardised)
{
    expectRead(R"([{"cwd":"/a/b"},{"cwd":"/a/b/"},{"cwd":"/A/b"},{"cwd":"/a//b"},{"cwd":" "},{"cwd":"~"}])",
               {6, {u"/a/b"_s, u"/a/b/"_s, u"/A/b"_s, u"/a//b"_s, u" "_s, u"~"_s}});
}

TEST(SessionRegistry, CanonicallyEquivalentDirectoriesAreOneAndKeepTheFirstSpelling)
{
    expectRead("[{\"cwd\":\"/cafe\u0301\"},{\"cwd\":\"/caf\u00e9\"},{\"cwd\":\"/cafe\"}]",
               {3, {u"/cafe\u0301"_s, u"/cafe"_s}});
    expectRead("[{\"cwd\":\"/\u00c5\"},{\"cwd\":\"/A\u030a\"},{\"cwd\":\"/\u212b\"}]", {3, {u"/\u00c5"_s}});
    expectRead("[{\"cwd\":\"/\u212b\"},{\"cwd\":\"/A\u030a\"},{\"cwd\":\"/\u00c5\"}]", {3, {u"/\u212b"_s}});
    expectRead("[{\"cwd\":\"/K\"},{\"cwd\":\"/\u212a\"}]", {2, {u"/K"_s}});
    expectRead("[{\"cwd\":\"/\u212a\"},{\"cwd\":\"/K\"}]", {2, {u"/\u212a"_s}});
}

TEST(SessionRegistry, OfEqualMembersTheFirstCounts)
{
    expectRead(R"([{"cwd":"/a","cwd":"/b"}])", {1, {u"/a"_s}});
    expectRead(R"([{"cwd":4,"cwd":"/b"}])", {1, {}});
}

TEST(SessionRegistry, DirectoriesMayContainAnyCharacter)
{
    expectRead(R"([{"cwd":"\u0000"},{"cwd":"\/a\nb"},{"cwd":"\ufeff"}])",
               {3, {QString(QChar::Null), u"/a\nb"_s, u"\ufeff"_s}});
}

TEST(SessionRegistry, CountsTheSessionsOfEachDirectory)
{
    putHomeFile(registry,
                "[{\"cwd\":\"/a\"},{\"cwd\":\"/\u00e9\"},{\"cwd\":\"/a\"},{\"cwd\":\"/e\u0301\"},{}]");
    EXPECT_EQ(Persistence::sessionDirectories(),
              (std::vector<Persistence::SessionDirectory>{{u"/a"_s, 2}, {u"/\u00e9"_s, 2}}));
}

TEST(SessionRegistry, ADirectoryInItsPlaceCountsAsAMissingFile)
{
    ASSERT_TRUE(QDir().mkpath(homePath(registry)));
    EXPECT_EQ(Persistence::sessionsCount(), 0);
    EXPECT_EQ(Persistence::knownProjects(), QStringList());
}

TEST(SessionRegistry, IsReadAfreshByEachOperationAndNeverTouched)
{
    putHomeFile(registry, R"([{"cwd":"/a"}])");
    RecordingFileSystem files;
    EXPECT_EQ(Persistence::sessionsCount(), 1);
    putHomeFile(registry, R"([{"cwd":"/b"},{"cwd":"/c"}])");
    EXPECT_EQ(Persistence::sessionsCount(), 2);
    EXPECT_EQ(Persistence::knownProjects(), (QStringList{u"/b"_s, u"/c"_s}));
    EXPECT_EQ(files.notes, QStringList(3, u"read "_s + homePath(registry)));
}

} // namespace
