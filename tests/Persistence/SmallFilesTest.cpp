#include "ChildProcess.h"
#include "Foundation/Seam.h"
#include "HomeFiles.h"
#include "Persistence/Persistence.h"
#include "Platform/Files/FileSystem.h"
#include "Platform/Files/Home.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <functional>
#include <vector>

using namespace Qt::StringLiterals;

namespace
{

const QString typeface = u".vantle/typeface.json"_s;
const QString greenScreen = u".vantle/green-screen.json"_s;
const QString terminalBackend = u".vantle/terminal-backend.json"_s;
const QString updates = u".vantle/updates.json"_s;
const QString demoMode = u".vantle/demo-mode.json"_s;

TEST(SmallFiles, LoadersGiveTheirDefaultsBeforeAnythingWasSaved)
{
    EXPECT_EQ(Persistence::loadTypeface(), TypefaceOption::jetbrainsMono);
    EXPECT_FALSE(Persistence::loadGreenScreen());
    EXPECT_EQ(Persistence::loadTerminalBackend(), TerminalBackendOption::iterm);
    EXPECT_EQ(Persistence::loadUpdatesConfig(), (Persistence::UpdatesConfig{true, std::nullopt}));
    EXPECT_FALSE(Persistence::loadDemoMode());
    EXPECT_FALSE(QDir(homePath(u".vantle"_s)).exists());
}

TEST(SmallFiles, SaversMakeTheDirectoryAndWriteTheEncodersForm)
{
    EXPECT_TRUE(Persistence::saveTypeface(u"system"_s));
    EXPECT_EQ(homeFile(typeface), "{\n  \"name\" : \"system\"\n}");
    EXPECT_TRUE(Persistence::saveGreenScreen(true));
    EXPECT_EQ(homeFile(greenScreen), "{\n  \"enabled\" : true\n}");
    EXPECT_TRUE(Persistence::saveTerminalBackend(u"vantle-term"_s));
    EXPECT_EQ(homeFile(terminalBackend), "{\n  \"backend\" : \"vantle-term\"\n}");
    EXPECT_TRUE(Persistence::saveUpdatesConfig({false, u"https://x/y"_s}));
    EXPECT_EQ(homeFile(updates),
              "{\n  \"automatic\" : false,\n  \"manifest_url\" : \"https:\\/\\/x\\/y\"\n}");
}

TEST(SmallFiles, TheFirstSaveMakesAMissingHomeToo)
{
    qputenv("HOME", homePath(u"not/made/yet"_s).toUtf8());
    EXPECT_TRUE(Persistence::saveGreenScreen(false));
    EXPECT_EQ(homeFile(greenScreen), "{\n  \"enabled\" : false\n}");
}

TEST(SmallFiles, AnAbsentManifestAddressIsLeftOut)
{
    EXPECT_TRUE(Persistence::saveUpdatesConfig({true, std::nullopt}));
    EXPECT_EQ(homeFile(updates), "{\n  \"automatic\" : true\n}");
}

TEST(SmallFiles, WhatWasSavedIsLoaded)
{
    Persistence::saveTypeface(rawValue(TypefaceOption::system));
    EXPECT_EQ(Persistence::loadTypeface(), TypefaceOption::system);
    Persistence::saveGreenScreen(true);
    EXPECT_TRUE(Persistence::loadGreenScreen());
    Persistence::saveTerminalBackend(rawValue(TerminalBackendOption::vantleTerm));
    EXPECT_EQ(Persistence::loadTerminalBackend(), TerminalBackendOption::vantleTerm);
    const Persistence::UpdatesConfig config{false, u"a \"b\" \u00e9\u2028"_s};
    Persistence::saveUpdatesConfig(config);
    EXPECT_EQ(Persistence::loadUpdatesConfig(), config);
}

TEST(SmallFiles, AnUnknownTypefaceIsJetBrainsMono)
{
    putHomeFile(typeface, R"({"name": "system"})");
    EXPECT_EQ(Persistence::loadTypeface(), TypefaceOption::system);
    for (const char *file :
         {R"({"name": "jetbrains-mono"})", R"({"name": "System"})", R"({"name": " system"})",
          R"({"name": ""})", R"({"name": 3})", R"({"name": null})", "{}", "[]", "\"system\"",
          R"({"name": "system"}x)", R"({"Name": "system"})", ""}) {
        putHomeFile(typeface, file);
        EXPECT_EQ(Persistence::loadTypeface(), TypefaceOption::jetbrainsMono) << file;
    }
}

TEST(SmallFiles, AnUnknownTerminalIsTheFirst)
{
    putHomeFile(terminalBackend, R"({"backend": "vantle-term"})");
    EXPECT_EQ(Persistence::loadTerminalBackend(), TerminalBackendOption::vantleTerm);
    for (const char *file : {R"({"backend": "iterm"})", R"({"backend": ""})", R"({"backend": "Vantle-Term"})",
                             R"({"backend": "vantle-term "})", R"({"backend": "other"})", "{}", "null",
                             R"({"backend": ["vantle-term"]})"}) {
        putHomeFile(terminalBackend, file);
        EXPECT_EQ(Persistence::loadTerminalBackend(), TerminalBackendOption::iterm) << file;
    }
}

TEST(SmallFiles, OnlyABooleanEnablesGreenScreenAndDemoMode)
{
    putHomeFile(greenScreen, R"({"enabled": true})");
    EXPECT_TRUE(Persistence::loadGreenScreen());
    putHomeFile(demoMode, "\xef\xbb\xbf{\"enabled\": true, \"since\": 3}");
    EXPECT_TRUE(Persistence::loadDemoMode());
    for (const char *file :
         {R"({"enabled": 1})", R"({"enabled": "true"})", R"({"enabled": null})", "{}", "true",
          R"({"enabled": false, "enabled": true})", R"({"enabled": true, "x": 01})"}) {
        putHomeFile(greenScreen, file);
        EXPECT_FALSE(Persistence::loadGreenScreen()) << file;
        putHomeFile(demoMode, file);
        EXPECT_FALSE(Persistence::loadDemoMode()) << file;
    }
}

TEST(SmallFiles, AnUpdatesFileWithoutItsFlagLosesItsAddress)
{
    for (const char *file : {R"({"manifest_url": "x"})", R"({"automatic": 0, "manifest_url": "x"})",
                             R"({"automatic": false, "manifest_url": 5})", R"([false])"}) {
        putHomeFile(updates, file);
        EXPECT_EQ(Persistence::loadUpdatesConfig(), (Persistence::UpdatesConfig{true, std::nullopt})) << file;
    }
}

TEST(SmallFiles, AManifestAddressMayBeMissingNullOrEmpty)
{
    putHomeFile(updates, R"({"automatic": false})");
    EXPECT_EQ(Persistence::loadUpdatesConfig(), (Persistence::UpdatesConfig{false, std::nullopt}));
    putHomeFile(updates, R"({"automatic": false, "manifest_url": null})");
    EXPECT_EQ(Persistence::loadUpdatesConfig(), (Persistence::UpdatesConfig{false, std::nullopt}));
    putHomeFile(updates, R"({"automatic": false, "manifest_url": ""})");
    EXPECT_EQ(Persistence::loadUpdatesConfig(), (Persistence::UpdatesConfig{false, u""_s}));
}

TEST(SmallFiles, ExtraMembersAreIgnoredAndDroppedByTheNextSave)
{
    putHomeFile(updates, R"({"automatic": false, "manifest_url": "x", "zoom": [1, {"a": null}]})");
    const auto config = Persistence::loadUpdatesConfig();
    EXPECT_EQ(config, (Persistence::UpdatesConfig{false, u"x"_s}));
    EXPECT_TRUE(Persistence::saveUpdatesConfig({!config.automatic, config.manifestURL}));
    EXPECT_EQ(homeFile(updates), "{\n  \"automatic\" : true,\n  \"manifest_url\" : \"x\"\n}");
}

TEST(SmallFiles, AFileThatCannotBeReadStaysAsItIs)
{
    const QByteArray broken = R"({"name": )";
    putHomeFile(typeface, broken);
    EXPECT_EQ(Persistence::loadTypeface(), TypefaceOption::jetbrainsMono);
    EXPECT_EQ(homeFile(typeface), broken);
}

TEST(SmallFiles, ADirectoryInTheirPlaceGivesTheDefaultAndFailsTheSave)
{
    ASSERT_TRUE(QDir().mkpath(homePath(greenScreen)));
    EXPECT_FALSE(Persistence::loadGreenScreen());
    EXPECT_FALSE(Persistence::saveGreenScreen(true));
}

TEST(SmallFiles, APipeInTheirPlaceGivesTheDefaultAndFailsTheSaveAtOnce)
{
    ASSERT_TRUE(QDir().mkpath(homePath(u".vantle"_s)));
    ASSERT_EQ(::mkfifo(homePath(demoMode).toUtf8().constData(), 0600), 0);
    ASSERT_EQ(::mkfifo(homePath(greenScreen).toUtf8().constData(), 0600), 0);
    EXPECT_FALSE(Persistence::loadDemoMode());
    EXPECT_FALSE(Persistence::loadGreenScreen());
    EXPECT_FALSE(Persistence::saveGreenScreen(true));
}

TEST(SmallFiles, ALinkedFileStaysALink)
{
    putHomeFile(u"dotfiles/typeface.json"_s, "{}");
    ASSERT_TRUE(QDir().mkpath(homePath(u".vantle"_s)));
    ASSERT_TRUE(QFile::link(u"../dotfiles/typeface.json"_s, homePath(typeface)));
    EXPECT_TRUE(Persistence::saveTypeface(u"system"_s));
    EXPECT_TRUE(QFileInfo(homePath(typeface)).isSymLink());
    EXPECT_EQ(homeFile(u"dotfiles/typeface.json"_s), "{\n  \"name\" : \"system\"\n}");
}

TEST(SmallFiles, AReadOnlyHomeFailsTheSaveAndChangesNothing)
{
    ASSERT_EQ(::chmod(testHome().toUtf8().constData(), 0555), 0);
    EXPECT_TRUE(
        asStranger([] { return !Persistence::saveGreenScreen(true) && !Persistence::loadGreenScreen(); }));
    ASSERT_EQ(::chmod(testHome().toUtf8().constData(), 0755), 0);
    EXPECT_TRUE(QDir(testHome()).isEmpty(QDir::AllEntries | QDir::Hidden | QDir::NoDotAndDotDot));
}

TEST(SmallFiles, WithoutAnyHomeNothingIsReadOrWritten)
{
    // Only root can become a user whom the password database does not know. For any other user that database
    // has a home directory even without HOME: the real one, which no test may touch.
    if (::geteuid() != 0)
        GTEST_SKIP() << "only root can become a user without a home directory";
    ASSERT_EQ(::chmod(testHome().toUtf8().constData(), 0777), 0);
    ASSERT_TRUE(QDir::setCurrent(testHome()));
    putHomeFile(greenScreen, R"({"enabled": true})");
    const bool kept = asStranger([] {
        ::unsetenv("HOME");
        return !homeDirectory() && !Persistence::loadGreenScreen() && !Persistence::saveTypeface(u"system"_s);
    });
    QDir::setCurrent(u"/"_s);
    EXPECT_TRUE(kept);
    EXPECT_EQ(homeFile(typeface), std::nullopt);
}

TEST(SmallFiles, TheHomeIsAskedForAnewByEveryCall)
{
    const QString first = testHome();
    Persistence::saveGreenScreen(true);
    qputenv("HOME", (first + u"/other"_s).toUtf8());
    EXPECT_FALSE(Persistence::loadGreenScreen());
    Persistence::saveTypeface(u"system"_s);
    EXPECT_TRUE(homeFile(typeface));
    qputenv("HOME", first.toUtf8());
    EXPECT_TRUE(Persistence::loadGreenScreen());
}

/// Files of a user whose HOME changes while a directory is created.
struct MovingHome final : FileSystem {
    QStringList written;
    std::optional<QByteArray> read(const QString &) override { return std::nullopt; }
    bool write(const QString &path, const QByteArray &) override
    {
        written << path;
        return true;
    }
    void keepCopy(const QString &, const QStringList &) override {}
    void createDirectory(const QString &) override { qputenv("HOME", "/elsewhere"); }
    void remove(const QString &) override {}
    bool exists(const QString &) override { return false; }
    bool isDirectory(const QString &) override { return false; }
};

TEST(SmallFiles, TheHomeIsAskedForAnewForTheFileAfterItsDirectory)
{
    const QByteArray home = qgetenv("HOME");
    MovingHome files;
    const Seam<FileSystem>::Replacement replacement(files);
    Persistence::saveGreenScreen(true);
    qputenv("HOME", home);
    EXPECT_EQ(files.written, QStringList{u"/elsewhere/.vantle/green-screen.json"_s});
}

} // namespace
