#include "ChildProcess.h"
#include "HomeFiles.h"
#include "Platform/Files/FileSystem.h"

#include <QDir>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

using namespace Qt::StringLiterals;

namespace
{

void keepCopy(const QString &file, const QStringList &places)
{
    QStringList paths;
    for (const QString &place : places)
        paths.append(homePath(place));
    FileSystem::system().keepCopy(homePath(file), paths);
}

QStringList filesInHome()
{
    return QDir(testHome()).entryList(QDir::AllEntries | QDir::System | QDir::Hidden | QDir::NoDotAndDotDot);
}

/// Some of these lengths are multiples of the block size of copying, 64 KiB.
TEST(FileCopy, HasTheBytesOfAFileOfAnyLength)
{
    for (const qsizetype length : {0, 1, 65535, 65536, 65537, 131072, 1000000}) {
        QByteArray bytes(length, Qt::Uninitialized);
        for (qsizetype i = 0; i < length; ++i)
            bytes[i] = char(i % 251);
        const QString copy = u"copy%1"_s.arg(length);
        putHomeFile(u"file"_s, bytes);
        keepCopy(u"file"_s, {copy});
        EXPECT_EQ(homeFile(copy), bytes) << length;
    }
}

TEST(FileCopy, NothingIsLeftOfAFileThatCannotBeRead)
{
    // A regular file that can be opened, but whose beginning is no memory. (It does not exist on every
    // system.)
    FileSystem::system().keepCopy(u"/proc/self/mem"_s, {homePath(u"copy"_s)});
    EXPECT_EQ(filesInHome(), QStringList());
}

TEST(FileCopy, AnExistingCopyIsComparedToTheLastByte)
{
    const QByteArray bytes = QByteArray(131072, 'x');
    for (const qsizetype other : {qsizetype{0}, qsizetype{65535}, qsizetype{65536}, bytes.size() - 1}) {
        putHomeFile(u"file"_s, bytes);
        keepCopy(u"file"_s, {u"copy"_s, u"other"_s});
        keepCopy(u"file"_s, {u"copy"_s, u"other"_s});
        EXPECT_EQ(filesInHome(), (QStringList{u"copy"_s, u"file"_s}));
        QByteArray different = bytes;
        different[other] = 'y';
        putHomeFile(u"file"_s, different);
        keepCopy(u"file"_s, {u"copy"_s, u"other"_s});
        EXPECT_EQ(homeFile(u"copy"_s), bytes);
        EXPECT_EQ(homeFile(u"other"_s), different) << other;
        ASSERT_TRUE(QFile::remove(homePath(u"copy"_s)) && QFile::remove(homePath(u"other"_s)));
    }
}

TEST(FileCopy, ABeginningOfTheFileIsNoCopyOfIt)
{
    putHomeFile(u"file"_s, "whole");
    putHomeFile(u"copy"_s, "who");
    keepCopy(u"file"_s, {u"copy"_s, u"other"_s});
    EXPECT_EQ(homeFile(u"copy"_s), QByteArray("who"));
    EXPECT_EQ(homeFile(u"other"_s), QByteArray("whole"));
}

TEST(FileCopy, OnlyRegularFilesAreCopied)
{
    ASSERT_TRUE(QDir().mkpath(homePath(u"directory"_s)));
    ASSERT_EQ(::mkfifo(homePath(u"pipe"_s).toUtf8().constData(), 0600), 0);
    for (const QString &file : {u"directory"_s, u"pipe"_s, u"missing"_s, u"directory/missing"_s})
        keepCopy(file, {u"copy"_s});
    FileSystem::system().keepCopy(u"/dev/zero"_s, {homePath(u"copy"_s)});
    EXPECT_EQ(filesInHome(), (QStringList{u"directory"_s, u"pipe"_s}));
}

TEST(FileCopy, AFileOf4GiBAndMoreIsNotCopied)
{
    putHomeFile(u"sparse"_s, "[]");
    ASSERT_EQ(::truncate(homePath(u"sparse"_s).toUtf8().constData(), off_t{4} << 30), 0);
    keepCopy(u"sparse"_s, {u"copy"_s});
    EXPECT_EQ(filesInHome(), QStringList{u"sparse"_s});
}

TEST(FileCopy, IsNotLeftInPartOnAFullDisk)
{
    putHomeFile(u"file"_s, QByteArray(200000, 'x'));
    const QString file = homePath(u"file"_s);
    const QStringList places{homePath(u"copy"_s), homePath(u"other"_s)};
    FileSystem &files = FileSystem::system();
    EXPECT_TRUE(inChildProcess([&] {
        const rlimit limit{100000, 100000};
        if (::setrlimit(RLIMIT_FSIZE, &limit) != 0)
            return false;
        files.keepCopy(file, places);
        return true;
    }));
    EXPECT_EQ(filesInHome(), QStringList{u"file"_s});
}

TEST(FileCopy, GivesNobodyMoreThanTheFilesOwnPermissions)
{
    putHomeFile(u"file"_s, "x");
    const QByteArray name = homePath(u"file"_s).toUtf8();
    ASSERT_EQ(::chmod(name.constData(), 04644), 0);
    keepCopy(u"file"_s, {u"copy"_s});
    struct stat status {
    };
    ASSERT_EQ(::stat(homePath(u"copy"_s).toUtf8().constData(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777U, 0644U);
}

} // namespace
