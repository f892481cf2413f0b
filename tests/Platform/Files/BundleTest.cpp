#include "Platform/Files/Bundle.h"

#include <QCoreApplication>
#include <QDir>
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

/// An installation under a prefix of its own.
struct Prefix {
    QTemporaryDir directory;

    QString path(const QString &relative) const { return directory.filePath(relative); }

    Bundle bundle() const { return installedBundle(path(u"bin/vantle-settings"_s)); }

    void makeResources() const { QDir().mkpath(path(u"share/vantle-settings"_s)); }

    void writeVersion(const QByteArray &bytes) const
    {
        makeResources();
        QFile file(path(u"share/vantle-settings/version"_s));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(bytes);
    }
};

TEST(InstalledBundle, HasNoResourcesWhereNothingIsInstalledBesideIt)
{
    const Prefix prefix;
    EXPECT_EQ(prefix.bundle().executablePath, prefix.path(u"bin/vantle-settings"_s));
    EXPECT_FALSE(prefix.bundle().resourceDirectory);
    EXPECT_FALSE(prefix.bundle().version);
}

TEST(InstalledBundle, FindsItsResourcesInThePrefixsDataDirectory)
{
    const Prefix prefix;
    prefix.makeResources();
    EXPECT_EQ(prefix.bundle().resourceDirectory, prefix.path(u"share/vantle-settings"_s));
    EXPECT_FALSE(prefix.bundle().version);
}

TEST(InstalledBundle, ReadsItsVersionWithoutTheLineEnd)
{
    const Prefix prefix;
    prefix.writeVersion("2.7.1\n");
    EXPECT_EQ(prefix.bundle().version, u"2.7.1"_s);
}

TEST(InstalledBundle, ReadsNoMoreThan64BytesOfAVersion)
{
    const Prefix prefix;
    prefix.writeVersion(QByteArray(100, '7'));
    EXPECT_EQ(prefix.bundle().version, QString(64, u'7'));
}

TEST(InstalledBundle, AnEmptyVersionIsNone)
{
    const Prefix prefix;
    prefix.writeVersion("\n");
    EXPECT_FALSE(prefix.bundle().version);
}

TEST(InstalledBundle, AVersionThatIsADirectoryIsNone)
{
    const Prefix prefix;
    QDir().mkpath(prefix.path(u"share/vantle-settings/version"_s));
    EXPECT_FALSE(prefix.bundle().version);
}

TEST(InstalledBundle, AProgramThatCannotBeFoundHasNothing)
{
    const Bundle bundle = installedBundle({});
    EXPECT_FALSE(bundle.executablePath);
    EXPECT_FALSE(bundle.resourceDirectory);
    EXPECT_FALSE(bundle.version);
}

TEST(Bundle, KnowsTheRunningProgram)
{
    EXPECT_EQ(Bundle::main().executablePath, QCoreApplication::applicationFilePath());
}

} // namespace
