#include "Platform/Files/Path.h"

#include "Foundation/Seam.h"
#include "Platform/Files/FileSystem.h"
#include "Platform/Files/Home.h"

#include <QSet>

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace
{

struct Case {
    QString path;
    QString result;
};

TEST(Path, LastComponent)
{
    const std::vector<Case> cases = {
        {u"/"_s, u"/"_s},
        {u"///"_s, u"/"_s},
        {u"a"_s, u"a"_s},
        {u"/a//b///"_s, u"b"_s},
        {u"/./..//./..//"_s, u".."_s},
        {u"."_s, u"."_s},
        {u"/tmp/scratch.tiff"_s, u"scratch.tiff"_s},
        {u"scratch///"_s, u"scratch"_s},
        {u"/\U0001f60e/\U0001f602/\u2764\ufe0f/"_s, u"\u2764\ufe0f"_s},
        {u""_s, u""_s},
    };
    for (const auto &[path, result] : cases)
        EXPECT_EQ(Path::lastComponent(path), result) << path.toStdString();
}

TEST(Path, Parent)
{
    const std::vector<Case> cases = {
        {u"/a/b"_s, u"/a"_s}, {u"/a"_s, u"/"_s}, {u"/"_s, u"/"_s}, {u"/a//b///"_s, u"/a"_s},
        {u"a/b"_s, u"a"_s},   {u"a"_s, u""_s},   {u""_s, u""_s},
    };
    for (const auto &[path, result] : cases)
        EXPECT_EQ(Path::parent(path), result) << path.toStdString();
}

TEST(Path, AppendingPutsOneSlashBetween)
{
    struct Appending {
        QString path;
        QString component;
        QString result;
    };
    const std::vector<Appending> cases = {
        {u"/plan/"_s, u"projects.toml"_s, u"/plan/projects.toml"_s},
        {u"/"_s, u"x"_s, u"/x"_s},
        {u"/tmp"_s, u"scratch.tiff"_s, u"/tmp/scratch.tiff"_s},
        {u"/"_s, u"scratch.tiff"_s, u"/scratch.tiff"_s},
        {u"/tmp"_s, u"/file"_s, u"/tmp/file"_s},
        {u""_s, u"/file"_s, u"/file"_s},
        {u""_s, u"file"_s, u"file"_s},
        {u"/"_s, u"/file/"_s, u"/file"_s},
        {u"/"_s, u"/"_s, u"/"_s},
        {u"file"_s, u"/"_s, u"file"_s},
        {u"//"_s, u"file"_s, u"/file"_s},
        {u"hello"_s, u"test/"_s, u"hello/test"_s},
        {u"//"_s, u"/"_s, u"/"_s},
        {u"./"_s, u"/foo"_s, u"./foo"_s},
        {u"/a"_s, u".."_s, u"/a/.."_s},
        {u"a"_s, u"./b"_s, u"a/./b"_s},
    };
    for (const auto &[path, component, result] : cases)
        EXPECT_EQ(Path::appending(path, component), result)
            << path.toStdString() << " + " << component.toStdString();
}

TEST(Path, ExpandingALeadingTilde)
{
    qputenv("HOME", "/Users/me");
    const QString root = homeDirectory(u"root"_s).value_or(u"no root"_s);
    const std::vector<Case> cases = {
        {u"~"_s, u"/Users/me"_s},
        {u"~/"_s, u"/Users/me"_s},
        {u"~/blah/"_s, u"/Users/me/blah"_s},
        {u"~root/"_s, root},
        {u"~root/blah/"_s, root + u"/blah"_s},
        {u"~unknownuser/"_s, u"~unknownuser"_s},
        {u"~*-#no-user"_s, u"~*-#no-user"_s},
        {u"/~other"_s, u"/~other"_s},
        {u"/other/"_s, u"/other"_s},
        {u""_s, u""_s},
        {u"~//x"_s, u"/Users/me/x"_s},
    };
    for (const auto &[path, result] : cases)
        EXPECT_EQ(Path::expandingTilde(path), result) << path.toStdString();
}

TEST(Path, ATildeGivesAHomeWithoutItsTrailingSlash)
{
    qputenv("HOME", "/Users//me/");
    EXPECT_EQ(Path::expandingTilde(u"~"_s), u"/Users/me"_s);
    EXPECT_EQ(Path::expandingTilde(u"~/x"_s), u"/Users/me/x"_s);
    qputenv("HOME", "/");
    EXPECT_EQ(Path::expandingTilde(u"~"_s), u"/"_s);
    EXPECT_EQ(Path::expandingTilde(u"~/x"_s), u"/x"_s);
}

TEST(Path, Standardizing)
{
    qputenv("HOME", "/Users/me");
    const std::vector<Case> cases = {
        {u"/path"_s, u"/path"_s},
        {u"path/"_s, u"path"_s},
        {u"//path"_s, u"/path"_s},
        {u"/path/.."_s, u"/"_s},
        {u"/.."_s, u"/"_s},
        {u"/path/down/../"_s, u"/path"_s},
        {u"/path/./"_s, u"/path"_s},
        {u"./"_s, u"."_s},
        {u"a/"_s, u"a"_s},
        {u"./path"_s, u"path"_s},
        {u"./path/."_s, u"path"_s},
        {u"path/."_s, u"path"_s},
        {u"./."_s, u"."_s},
        {u"/../../.."_s, u"/"_s},
        {u"/../path/down/"_s, u"/path/down"_s},
        {u"///home/user"_s, u"/home/user"_s},
        {u"/home/../nicola"_s, u"/nicola"_s},
        {u"/here/../../nicola"_s, u"/nicola"_s},
        {u"~/foo/bar/"_s, u"/Users/me/foo/bar"_s},
        {u"/.//tmp/ABC/.."_s, u"/tmp"_s},
        {u"//"_s, u"/"_s},
        {u"../"_s, u".."_s},
        {u"/../a"_s, u"/a"_s},
        {u"a//b"_s, u"a/b"_s},
        {u"a~"_s, u"a~"_s},
        {u"../../a/../b"_s, u"../../b"_s},
        {u"a/.."_s, u"."_s},
        {u"a/../.."_s, u".."_s},
        {u"/a/.b/..c/..."_s, u"/a/.b/..c/..."_s},
        {u"/.\u0301/x"_s, u"/.\u0301/x"_s},
        {u"~/.."_s, u"/Users"_s},
        {u""_s, u""_s},
    };
    for (const auto &[path, result] : cases)
        EXPECT_EQ(Path::standardizing(path), result) << path.toStdString();
}

TEST(Path, StandardizingTwiceChangesNothingMore)
{
    qputenv("HOME", "/Users/me");
    const std::vector<QString> parts = {u"/"_s, u"."_s, u".."_s, u"a"_s, u"~"_s, u"\u00e9"_s, u"//"_s};
    for (const QString &first : parts) {
        for (const QString &second : parts) {
            for (const QString &third : parts) {
                const QString path = u'/' + first + u'/' + second + third;
                const QString once = Path::standardizing(path);
                EXPECT_EQ(Path::standardizing(once), once) << path.toStdString();
            }
        }
    }
}

/// A file system in which only these paths exist.
struct Disk : FileSystem {
    QSet<QString> paths;
    std::optional<QByteArray> read(const QString &) override { return std::nullopt; }
    bool write(const QString &, const QByteArray &) override { return false; }
    void keepCopy(const QString &, const QStringList &) override {}
    void createDirectory(const QString &) override {}
    void remove(const QString &) override {}
    bool exists(const QString &path) override { return paths.contains(path); }
    bool isDirectory(const QString &) override { return false; }
};

TEST(Path, StandardizingDropsPrivateWhereTheSystemHasLinksIntoIt)
{
    Disk disk;
    disk.paths = {u"/tmp/x"_s};
    const Seam<FileSystem>::Replacement replacement(disk);
    EXPECT_EQ(Path::standardizing(u"/private/./tmp/x/"_s),
              VANTLE_HAS_LINKS_INTO_PRIVATE ? u"/tmp/x" : u"/private/tmp/x");
}

TEST(Path, PrivateStaysBeforeTopLevelDirectories)
{
    Disk disk;
    const Seam<FileSystem>::Replacement replacement(disk);
    for (const QString &name :
         {u"Applications"_s, u"Library"_s, u"System"_s, u"Users"_s, u"Volumes"_s, u"bin"_s, u"cores"_s,
          u"dev"_s, u"opt"_s, u"private"_s, u"sbin"_s, u"usr"_s}) {
        disk.paths = {u'/' + name, u'/' + name + u"/x"_s, u'/' + name + u"2/x"_s};
        for (const QString &path : {u"/private/"_s + name, u"/private/"_s + name + u"/x"_s})
            EXPECT_EQ(Path::withoutPrivate(path), path);
        EXPECT_EQ(Path::withoutPrivate(u"/private/"_s + name + u"2/x"_s), u'/' + name + u"2/x"_s);
    }
}

TEST(Path, PrivateIsDroppedWhereTheRestExistsAndIsALinkIntoIt)
{
    Disk disk;
    disk.paths = {u"/tmp/x"_s, u"/Users/me"_s, u"/usrlocal"_s, u"/bin"_s, u"/"_s};
    const Seam<FileSystem>::Replacement replacement(disk);
    const std::vector<Case> cases = {
        {u"/private/tmp/x"_s, u"/tmp/x"_s},
        {u"/private/tmp/y"_s, u"/private/tmp/y"_s},
        {u"/private/Users/me"_s, u"/private/Users/me"_s},
        {u"/private/usrlocal"_s, u"/usrlocal"_s},
        {u"/private/bin"_s, u"/private/bin"_s},
        {u"/private"_s, u"/private"_s},
        {u"/privateer/tmp/x"_s, u"/privateer/tmp/x"_s},
    };
    for (const auto &[path, result] : cases)
        EXPECT_EQ(Path::withoutPrivate(path), result) << path.toStdString();
}

} // namespace
