#include "Platform/Files/detail/RegularFile.h"

#include "ChildProcess.h"
#include "HomeFiles.h"

#include <fcntl.h>
#include <gtest/gtest.h>

#include <cerrno>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace
{

TEST(RegularFile, IsNotInheritedByProgramsThatAreStarted)
{
    putHomeFile(u"file"_s, "x");
    const RegularFile file(homePath(u"file"_s), O_RDONLY);
    ASSERT_TRUE(file.isOpen());
    EXPECT_EQ(::fcntl(file.descriptor(), F_GETFD), FD_CLOEXEC);
}

TEST(RegularFile, ATerminalInItsPlaceDoesNotBecomeTheControllingOne)
{
    EXPECT_TRUE(inChildProcess([] {
        const int other = ::posix_openpt(O_RDWR | O_NOCTTY);
        if (::setsid() < 0 || ::grantpt(other) != 0 || ::unlockpt(other) != 0)
            return false;
        const RegularFile file(QString::fromUtf8(::ptsname(other)), O_RDWR);
        return !file.isOpen() && ::open("/dev/tty", O_RDWR) < 0;
    }));
}

TEST(RegularFile, IsClosedOnce)
{
    putHomeFile(u"file"_s, "x");
    RegularFile file(homePath(u"file"_s), O_RDONLY);
    EXPECT_TRUE(file.close());
    EXPECT_FALSE(file.isOpen());
    EXPECT_FALSE(file.close());
}

TEST(RegularFile, IsClosedAtTheEndOfItsLife)
{
    putHomeFile(u"file"_s, "x");
    int descriptor = -1;
    {
        const RegularFile file(homePath(u"file"_s), O_RDONLY);
        descriptor = file.descriptor();
        EXPECT_GE(::fcntl(descriptor, F_GETFD), 0);
    }
    EXPECT_LT(::fcntl(descriptor, F_GETFD), 0);
}

TEST(RegularFile, AnInterruptionOfAnEarlierCallRepeatsNothing)
{
    putHomeFile(u"file"_s, "x");
    errno = EINTR;
    const RegularFile file(homePath(u"file"_s), O_RDONLY);
    ASSERT_TRUE(file.isOpen());
    char byte = 0;
    errno = EINTR;
    EXPECT_EQ(file.read(0, &byte, 1), 1);
    EXPECT_EQ(file.read(1, &byte, 1), 0);
}

TEST(RegularFile, IsTheSameUnderAHardLinkButNotAsACopy)
{
    putHomeFile(u"file"_s, "x");
    putHomeFile(u"copy"_s, "x");
    ASSERT_EQ(::link(homePath(u"file"_s).toUtf8().constData(), homePath(u"name"_s).toUtf8().constData()), 0);
    const RegularFile file(homePath(u"file"_s), O_RDONLY);
    EXPECT_TRUE(file.isSameAs(RegularFile(homePath(u"name"_s), O_RDONLY)));
    EXPECT_FALSE(file.isSameAs(RegularFile(homePath(u"copy"_s), O_RDONLY)));
}

} // namespace
