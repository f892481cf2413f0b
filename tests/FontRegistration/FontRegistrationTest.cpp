#include "FontRegistration/FontRegistration.h"

#include "Foundation/Seam.h"
#include "Platform/Desktop/Appearance/FontRegistry.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QTemporaryDir>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

struct RecordingRegistry : FontRegistry {
    QStringList added;

    void add(const QStringList &files) override { added << files; }
    void finish() override {}
    bool has(const QString &) override { return false; }
};

/// Three directories to search, empty at first.
struct Directories {
    QTemporaryDir root;
    QStringList paths{root.filePath(u"first"_s), root.filePath(u"second"_s), root.filePath(u"third"_s)};

    QString place(qsizetype directory, const QString &name) const
    {
        QDir().mkpath(paths[directory]);
        QFile file(paths[directory] + u'/' + name + u".ttf"_s);
        EXPECT_TRUE(file.open(QIODevice::WriteOnly));
        return file.fileName();
    }

    QStringList registered() const
    {
        RecordingRegistry registry;
        FontRegistration::registerFonts(paths, registry);
        return registry.added;
    }
};

TEST(FontRegistration, NamesTheFourFacesInOrder)
{
    EXPECT_EQ(FontRegistration::names(), (QStringList{u"JetBrainsMono-Regular"_s, u"JetBrainsMono-Medium"_s,
                                                      u"JetBrainsMono-SemiBold"_s, u"JetBrainsMono-Bold"_s}));
}

TEST(FontRegistration, SearchesTheBundleThenBesideTheExecutableThenTheSources)
{
    const Bundle bundle{.executablePath = u"/opt/vantle/bin/vantle-settings"_s,
                        .resourceDirectory = u"/opt/vantle/share/vantle-settings"_s,
                        .version = {}};
    EXPECT_EQ(FontRegistration::candidateFontDirectories(bundle),
              (QStringList{u"/opt/vantle/share/vantle-settings/Fonts"_s,
                           u"/opt/vantle/bin/Vantle_VantleSettings.bundle/Fonts"_s,
                           QStringLiteral(VANTLE_SOURCE_DIRECTORY "/Resources/Fonts")}));
}

TEST(FontRegistration, SearchesTheSourcesEvenForAnEmptyBundle)
{
    EXPECT_EQ(FontRegistration::candidateFontDirectories({}),
              QStringList{QStringLiteral(VANTLE_SOURCE_DIRECTORY "/Resources/Fonts")});
}

TEST(FontRegistration, TakesEachFaceFromTheFirstDirectoryThatHasIt)
{
    const Directories directories;
    const QString regular = directories.place(0, u"JetBrainsMono-Regular"_s);
    const QString medium = directories.place(0, u"JetBrainsMono-Medium"_s);
    const QString semiBold = directories.place(0, u"JetBrainsMono-SemiBold"_s);
    const QString bold = directories.place(2, u"JetBrainsMono-Bold"_s);
    EXPECT_EQ(directories.registered(), (QStringList{regular, medium, semiBold, bold}));
}

TEST(FontRegistration, AFaceInSeveralDirectoriesIsRegisteredOnce)
{
    const Directories directories;
    const QString second = directories.place(1, u"JetBrainsMono-Medium"_s);
    directories.place(2, u"JetBrainsMono-Medium"_s);
    EXPECT_EQ(directories.registered(), QStringList{second});
}

TEST(FontRegistration, FacesAreRegisteredInTheirOrderWhereverTheyAre)
{
    const Directories directories;
    const QString bold = directories.place(0, u"JetBrainsMono-Bold"_s);
    const QString regular = directories.place(2, u"JetBrainsMono-Regular"_s);
    EXPECT_EQ(directories.registered(), (QStringList{regular, bold}));
}

TEST(FontRegistration, WithoutAnyFileNothingIsRegistered)
{
    EXPECT_EQ(Directories().registered(), QStringList());
}

TEST(FontRegistration, OtherFilesAreLeftAlone)
{
    const Directories directories;
    directories.place(0, u"JetBrainsMono-Italic"_s);
    EXPECT_EQ(directories.registered(), QStringList());
}

TEST(FontRegistration, TheSystemHasTheShippedFacesOnceTheyAreRegistered)
{
    FontRegistration::registerFonts(FontRegistration::candidateFontDirectories({}), FontRegistry::system());
    for (const QString &name : FontRegistration::names())
        EXPECT_TRUE(FontRegistry::system().has(name)) << name.toStdString();
}

TEST(FontRegistration, RegistersTheProgramsOwnFacesOnce)
{
    RecordingRegistry registry;
    const Seam<FontRegistry>::Replacement replaced(registry);
    FontRegistration::registerBundledFonts();
    ASSERT_EQ(registry.added.size(), 4);
    for (const QString &file : registry.added)
        EXPECT_TRUE(QFileInfo(file).isFile()) << file.toStdString();
    FontRegistration::registerBundledFonts();
    EXPECT_EQ(registry.added.size(), 4);
}

} // namespace
