#include "Platform/Files/Home.h"

#include <gtest/gtest.h>
#include <pwd.h>
#include <unistd.h>

using namespace Qt::StringLiterals;

namespace
{

QString homeInThePasswordDatabase()
{
    const passwd *entry = ::getpwuid(::getuid());
    return entry ? QString::fromUtf8(entry->pw_dir) : QString();
}

TEST(Home, IsTheValueOfHomeWhereThatIsAbsolute)
{
    qputenv("HOME", "/somewhere/else");
    EXPECT_EQ(homeDirectory(), u"/somewhere/else"_s);
    qputenv("HOME", "/h\xc3\xb6me");
    EXPECT_EQ(homeDirectory(), u"/h\u00f6me"_s);
}

TEST(Home, IsAskedAnewEachTime)
{
    qputenv("HOME", "/one");
    EXPECT_EQ(homeDirectory(), u"/one"_s);
    qputenv("HOME", "/two");
    EXPECT_EQ(homeDirectory(), u"/two"_s);
}

TEST(Home, ComesFromThePasswordDatabaseWhereHomeIsNoAbsolutePath)
{
    const QString expected = homeInThePasswordDatabase();
    ASSERT_TRUE(expected.startsWith(u'/'));
    qunsetenv("HOME");
    EXPECT_EQ(homeDirectory(), expected);
    for (const char *home : {"", "relative", "~", "./home", "/not-\xff-utf8"}) {
        qputenv("HOME", home);
        EXPECT_EQ(homeDirectory(), expected) << home;
    }
}

TEST(Home, OfAnotherUserComesFromThePasswordDatabase)
{
    EXPECT_EQ(homeDirectory(u"root"_s), QString::fromUtf8(::getpwnam("root")->pw_dir));
    EXPECT_EQ(homeDirectory(u"nobody-has-this-name"_s), std::nullopt);
    EXPECT_EQ(homeDirectory(QString::fromUtf16(u"root\0x", 6)), std::nullopt);
    EXPECT_EQ(homeDirectory(QString(100000, u'x')), std::nullopt);
}

} // namespace
