#include "Platform/Files/FileSystem.h"

#include "ChildProcess.h"
#include "HomeFiles.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>
#include <unistd.h>

#include <array>
#include <csignal>
#include <cstring>

using namespace Qt::StringLiterals;

namespace
{

FileSystem &files()
{
    return FileSystem::system();
}

QByteArray systemName(const QString &relativePath)
{
    return homePath(relativePath).toUtf8();
}

mode_t modeOf(const QString &relativePath)
{
    struct stat status {
    };
    return ::stat(systemName(relativePath).constData(), &status) == 0 ? status.st_mode & 07777U : 0;
}

TEST(FileSystem, ReadsWholeFilesAndLinksToThem)
{
    const QByteArray bytes = QByteArray("line\n\0\xff", 7).repeated(100000);
    putHomeFile(u"file"_s, bytes);
    EXPECT_EQ(files().read(homePath(u"file"_s)), bytes);
    ASSERT_TRUE(QFile::link(u"file"_s, homePath(u"link"_s)));
    EXPECT_EQ(files().read(homePath(u"link"_s)), bytes);
    putHomeFile(u"empty"_s, "");
    EXPECT_EQ(files().read(homePath(u"empty"_s)), QByteArray(""));
}

TEST(FileSystem, LeavesRoomForTheParserBehindTheBytes)
{
    putHomeFile(u"file"_s, QByteArray(4096, 'x'));
    const auto bytes = files().read(homePath(u"file"_s));
    ASSERT_TRUE(bytes);
    EXPECT_GE(bytes->capacity() - bytes->size(), 64);
}

TEST(FileSystem, ReadsFilesThatReportNoSize)
{
    const QString status = u"/proc/self/status"_s;
    const bool hasProc = QFileInfo::exists(status);
    EXPECT_EQ(files().read(status).value_or("").contains("Pid:"), hasProc);
    // This file takes several reads and has the same bytes each time.
    QFile limits(u"/proc/self/limits"_s);
    if (limits.open(QFile::ReadOnly)) {
        EXPECT_EQ(files().read(limits.fileName()), limits.readAll());
    }
}

TEST(FileSystem, ReadsNothingButRegularFilesAndNeverWaitsForOne)
{
    ASSERT_TRUE(QDir().mkpath(homePath(u"directory"_s)));
    ASSERT_EQ(::mkfifo(systemName(u"pipe"_s).constData(), 0600), 0);
    ASSERT_TRUE(QFile::link(u"circle"_s, homePath(u"circle"_s)));
    ASSERT_TRUE(QFile::link(u"nowhere"_s, homePath(u"dangling"_s)));
    ASSERT_TRUE(QFile::link(u"pipe"_s, homePath(u"link to a pipe"_s)));
    const int socket = ::socket(AF_UNIX, SOCK_STREAM, 0);
    sockaddr_un address{};
    address.sun_family = AF_UNIX;
    const QByteArray socketName = systemName(u"socket"_s);
    ASSERT_LT(std::size_t(socketName.size()), sizeof address.sun_path);
    std::memcpy(address.sun_path, socketName.constData(), std::size_t(socketName.size()));
    ASSERT_EQ(::bind(socket, reinterpret_cast<const sockaddr *>(&address), sizeof address), 0);
    for (const QString &name : {u"directory"_s, u"pipe"_s, u"circle"_s, u"dangling"_s, u"link to a pipe"_s,
                                u"socket"_s, u"missing"_s, u"missing/file"_s}) {
        EXPECT_EQ(files().read(homePath(name)), std::nullopt) << name.toStdString();
    }
    for (const QString &path : {u"/dev/zero"_s, u"/dev/null"_s, u"/dev/tty"_s, u""_s})
        EXPECT_EQ(files().read(path), std::nullopt) << path.toStdString();
    ::close(socket);
}

TEST(FileSystem, AFileThatCannotBeReadHasNoBytes)
{
    // A regular file that can be opened, but whose beginning is no memory. (It does not exist on every
    // system.)
    EXPECT_FALSE(files().read(u"/proc/self/mem"_s));
}

TEST(FileSystem, RefusesToReadFilesOf4GiBAndMore)
{
    putHomeFile(u"sparse"_s, "[]");
    ASSERT_EQ(::truncate(systemName(u"sparse"_s).constData(), off_t{4} << 30), 0);
    EXPECT_EQ(files().read(homePath(u"sparse"_s)), std::nullopt);
}

TEST(FileSystem, APathWithANulInsideNamesNothing)
{
    putHomeFile(u"file"_s, "x");
    const QString path = homePath(u"file"_s) + QChar::Null + u"y"_s;
    EXPECT_EQ(files().read(path), std::nullopt);
    EXPECT_FALSE(files().write(path, "y"));
    EXPECT_FALSE(files().exists(path));
    EXPECT_FALSE(files().isDirectory(path));
    files().remove(path);
    files().createDirectory(path);
    EXPECT_EQ(homeFile(u"file"_s), QByteArray("x"));
}

TEST(FileSystem, ATooLongPathNamesNothing)
{
    FileSystem &files = FileSystem::system();
    const QString path = u"/x"_s.repeated(5000000);
    EXPECT_FALSE(files.read(path));
    EXPECT_FALSE(files.exists(path));
    EXPECT_FALSE(files.isDirectory(path));
    EXPECT_FALSE(files.write(path, "x"));
    files.createDirectory(path);
    files.remove(path);
    const QString longest = u"/."_s.repeated(FileSystem::tooLong / 2 - 1) + u'/';
    EXPECT_TRUE(files.isDirectory(longest));
    EXPECT_EQ(longest.size(), FileSystem::tooLong - 1);
}

TEST(FileSystem, WritesInPlaceAndKeepsModeOwnerAndLinks)
{
    putHomeFile(u"file"_s, "something longer than what replaces it");
    ASSERT_EQ(::chmod(systemName(u"file"_s).constData(), 0640), 0);
    ASSERT_EQ(::link(systemName(u"file"_s).constData(), systemName(u"second name"_s).constData()), 0);
    ASSERT_TRUE(QFile::link(u"file"_s, homePath(u"link"_s)));
    EXPECT_TRUE(files().write(homePath(u"link"_s), "short"));
    EXPECT_EQ(homeFile(u"file"_s), QByteArray("short"));
    EXPECT_EQ(homeFile(u"second name"_s), QByteArray("short"));
    EXPECT_TRUE(QFileInfo(homePath(u"link"_s)).isSymLink());
    EXPECT_EQ(modeOf(u"file"_s), 0640U);
    EXPECT_EQ(QDir(testHome()).entryList(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot).size(), 3);
}

TEST(FileSystem, WritingNoBytesEmptiesAFile)
{
    putHomeFile(u"file"_s, "old");
    EXPECT_TRUE(files().write(homePath(u"file"_s), {}));
    EXPECT_EQ(homeFile(u"file"_s), QByteArray(""));
}

TEST(FileSystem, WritingFollowsALinkToAFileThatIsNotThereYet)
{
    ASSERT_TRUE(QFile::link(u"target"_s, homePath(u"link"_s)));
    EXPECT_TRUE(files().write(homePath(u"link"_s), "x"));
    EXPECT_EQ(homeFile(u"target"_s), QByteArray("x"));
    EXPECT_TRUE(QFileInfo(homePath(u"link"_s)).isSymLink());
}

TEST(FileSystem, ANewFilesModeIsLimitedByTheUmask)
{
    const mode_t previous = ::umask(027);
    EXPECT_TRUE(files().write(homePath(u"file"_s), "x"));
    ::umask(previous);
    EXPECT_EQ(modeOf(u"file"_s), 0640U);
}

TEST(FileSystem, WritingOverAnythingButAFileFailsWithoutWaiting)
{
    ASSERT_TRUE(QDir().mkpath(homePath(u"directory"_s)));
    ASSERT_EQ(::mkfifo(systemName(u"pipe"_s).constData(), 0600), 0);
    EXPECT_FALSE(files().write(homePath(u"directory"_s), "x"));
    EXPECT_FALSE(files().write(homePath(u"pipe"_s), "x"));
    const int reader = ::open(systemName(u"pipe"_s).constData(), O_RDONLY | O_NONBLOCK);
    ASSERT_GE(reader, 0);
    EXPECT_FALSE(files().write(homePath(u"pipe"_s), "x"));
    std::array<char, 2> received{};
    EXPECT_EQ(::read(reader, received.data(), received.size()), 0) << "something went into the pipe";
    ::close(reader);
    EXPECT_FALSE(files().write(u"/dev/null"_s, "x"));
    EXPECT_FALSE(files().write(homePath(u"missing/file"_s), "x"));
}

TEST(FileSystem, AWriteBeyondTheFileSizeLimitFails)
{
    putHomeFile(u"file"_s, "old");
    const QString path = homePath(u"file"_s);
    FileSystem &fileSystem = files();
    EXPECT_TRUE(inChildProcess([&] {
        const rlimit limit{1000, 1000};
        return ::setrlimit(RLIMIT_FSIZE, &limit) == 0 && !fileSystem.write(path, QByteArray(2000, 'x')) &&
               fileSystem.write(path, "new");
    }));
    EXPECT_EQ(homeFile(u"file"_s), QByteArray("new"));
}

TEST(FileSystem, PermissionsAreRespectedAndAnUnwritableFileStaysAsItIs)
{
    putHomeFile(u"secret"_s, "x");
    putHomeFile(u"readable"_s, "x");
    ASSERT_EQ(::chmod(systemName(u"secret"_s).constData(), 0), 0);
    ASSERT_EQ(::chmod(systemName(u"readable"_s).constData(), 0444), 0);
    ASSERT_EQ(::chmod(testHome().toUtf8().constData(), 0555), 0);
    const QString home = testHome();
    EXPECT_TRUE(asStranger([&] {
        return !files().read(home + u"/secret"_s) && files().read(home + u"/readable"_s) == QByteArray("x") &&
               !files().write(home + u"/secret"_s, "y") && !files().write(home + u"/readable"_s, "y") &&
               !files().write(home + u"/new"_s, "y");
    }));
    ASSERT_EQ(::chmod(testHome().toUtf8().constData(), 0755), 0);
    EXPECT_EQ(homeFile(u"readable"_s), QByteArray("x"));
    EXPECT_EQ(homeFile(u"new"_s), std::nullopt);
}

TEST(FileSystem, RemovesFilesAndLinksButNoDirectory)
{
    putHomeFile(u"file"_s, "x");
    ASSERT_TRUE(QDir().mkpath(homePath(u"directory"_s)));
    ASSERT_TRUE(QFile::link(u"file"_s, homePath(u"link"_s)));
    for (const QString &name : {u"link"_s, u"directory"_s, u"missing"_s})
        files().remove(homePath(name));
    EXPECT_EQ(QDir(testHome()).entryList(QDir::AllEntries | QDir::NoDotAndDotDot),
              (QStringList{u"directory"_s, u"file"_s}));
    files().remove(homePath(u"file"_s));
    EXPECT_EQ(homeFile(u"file"_s), std::nullopt);
}

TEST(FileSystem, MakesDirectoriesWithTheirParents)
{
    files().createDirectory(homePath(u"a/b/c"_s));
    EXPECT_TRUE(files().isDirectory(homePath(u"a/b/c"_s)));
    files().createDirectory(homePath(u"a/b/c"_s));
    putHomeFile(u"file"_s, "x");
    files().createDirectory(homePath(u"file/inside"_s));
    EXPECT_FALSE(files().exists(homePath(u"file/inside"_s)));
}

TEST(FileSystem, ExistenceFollowsLinks)
{
    putHomeFile(u"file"_s, "x");
    ASSERT_TRUE(QFile::link(u"file"_s, homePath(u"link"_s)));
    ASSERT_TRUE(QFile::link(u"nowhere"_s, homePath(u"dangling"_s)));
    ASSERT_TRUE(QFile::link(testHome(), homePath(u"link home"_s)));
    EXPECT_TRUE(files().exists(homePath(u"file"_s)));
    EXPECT_TRUE(files().exists(homePath(u"link"_s)));
    EXPECT_FALSE(files().exists(homePath(u"dangling"_s)));
    EXPECT_FALSE(files().isDirectory(homePath(u"file"_s)));
    EXPECT_TRUE(files().isDirectory(homePath(u"link home"_s)));
}

} // namespace
