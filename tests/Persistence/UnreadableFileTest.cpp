#include "ChildProcess.h"
#include "HomeFiles.h"
#include "Persistence/BrowserPatterns.h"
#include "Persistence/Persistence.h"
#include "Planning/Planning.h"
#include "Shortcuts/Shortcuts.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

#include <gtest/gtest.h>
#include <sys/stat.h>

#include <functional>
#include <vector>

using namespace Qt::StringLiterals;

namespace
{

const QString typeface = u".vantle/typeface.json"_s;
const QString updates = u".vantle/updates.json"_s;
const QString typefaceCopy = u".vantle/typeface.json.unreadable"_s;
const QByteArray unreadable = R"({"name": "system)";
const QByteArray saved = "{\n  \"name\" : \"jetbrains-mono\"\n}";

bool saveTypeface()
{
    return Persistence::saveTypeface(u"jetbrains-mono"_s);
}

QString numberedCopy(int number)
{
    return number == 1 ? typefaceCopy : typefaceCopy + u'-' + QString::number(number);
}

/// The names of the copies in a folder.
QStringList copies(const QString &folder = u".vantle"_s)
{
    return QDir(homePath(folder))
        .entryList({u"*unreadable*"_s}, QDir::AllEntries | QDir::Hidden | QDir::System);
}

mode_t modeOf(const QString &relativePath)
{
    struct stat status {
    };
    return ::stat(homePath(relativePath).toUtf8().constData(), &status) == 0 ? status.st_mode & 07777U : 0;
}

void setMode(const QString &relativePath, mode_t mode)
{
    ASSERT_EQ(::chmod(homePath(relativePath).toUtf8().constData(), mode), 0);
}

/// A settings file, with contents that its loader refuses and contents that it accepts.
struct SavedFile {
    QString path;
    std::function<void()> save;
    std::vector<QByteArray> refused;
    std::vector<QByteArray> accepted;
};

std::vector<SavedFile> savedFiles()
{
    return {
        {typeface,
         saveTypeface,
         {R"({"name": system})", R"({"name": 3})", R"({"Name": "system"})", "[]"},
         {R"({"name": "Futura", "size": 3})", "{\"name\":\"\"}"}},
        {u".vantle/green-screen.json"_s,
         [] { Persistence::saveGreenScreen(true); },
         {R"({"enabled": 1})", R"({"enabled": true,})", "true"},
         {"\xef\xbb\xbf{\"enabled\": false, \"x\": []}"}},
        {u".vantle/terminal-backend.json"_s,
         [] { Persistence::saveTerminalBackend(u"iterm"_s); },
         {R"({"backend": null})", "{}", "{\"backend\": \"\xff\"}"},
         {R"({"backend": "other"})"}},
        {updates,
         [] { Persistence::saveUpdatesConfig(Persistence::loadUpdatesConfig()); },
         {R"({"manifest_url": "https://x/y"})", R"({"automatic": "no", "manifest_url": "https://x/y"})",
          R"({"automatic": false, "manifest_url": 5})"},
         {R"({"automatic": false, "manifest_url": null})", R"({"automatic": true})"}},
        {u".claude/browser-patterns.json"_s,
         [] { Persistence::saveBrowserPatterns({}); },
         {R"({"/a": ["x"], "/b": ["y", 1]})", R"({"/a": ["x"] "/b": []})", R"(["/a"])"},
         {"{}", R"({"/a": []})"}},
        {u".vantle/planning.json"_s,
         [] { Planning::save({.root = u"/plan"_s}); },
         {R"({"root": 5})", "[]", R"({"root": "/plan)"},
         {"{}", R"({"root": null})", R"({"root": "", "x": 1})"}},
        {u".vantle/shortcuts.json"_s,
         [] { Shortcuts().save(); },
         {R"({"focusLast": {"keyCode": 38}})", R"({"focusLast": {"keyCode": 38, "modifiers": 768}}})", "[]"},
         {"{}", R"({"zoom": {"keyCode": 38, "modifiers": 768}})"}},
    };
}

TEST(UnreadableFile, IsCopiedBesideItselfBeforeItIsSavedOver)
{
    for (const SavedFile &file : savedFiles()) {
        for (const QByteArray &bytes : file.refused) {
            putHomeFile(file.path, bytes);
            file.save();
            EXPECT_EQ(homeFile(file.path + u".unreadable"_s), bytes) << bytes.toStdString();
            EXPECT_NE(homeFile(file.path), bytes);
            ASSERT_TRUE(QFile::remove(homePath(file.path + u".unreadable"_s))) << bytes.toStdString();
        }
    }
}

TEST(UnreadableFile, AReadableOrMissingFileIsNotCopied)
{
    for (const SavedFile &file : savedFiles()) {
        file.save(); // there is no file yet
        file.save();
        for (const QByteArray &bytes : file.accepted) {
            putHomeFile(file.path, bytes);
            file.save();
        }
        EXPECT_EQ(copies(QFileInfo(file.path).path()), QStringList()) << file.path.toStdString();
    }
}

TEST(UnreadableFile, AnEmptyOneIsCopiedToo)
{
    putHomeFile(typeface, "");
    EXPECT_TRUE(saveTypeface());
    EXPECT_EQ(homeFile(typefaceCopy), QByteArray(""));
}

TEST(UnreadableFile, IsNeitherChangedNorCopiedByLoading)
{
    putHomeFile(typeface, unreadable);
    Persistence::loadTypeface();
    EXPECT_EQ(homeFile(typeface), unreadable);
    EXPECT_EQ(copies(), QStringList());
}

TEST(UnreadableFile, IsCopiedOnceForTheSameBytes)
{
    for (int round = 0; round < 3; ++round) {
        putHomeFile(typeface, unreadable);
        EXPECT_TRUE(saveTypeface());
        EXPECT_TRUE(saveTypeface());
    }
    EXPECT_EQ(copies(), QStringList{u"typeface.json.unreadable"_s});
}

TEST(UnreadableFile, OtherBytesGetACopyOfTheirOwnUpToNine)
{
    for (int number = 1; number <= 11; ++number) {
        putHomeFile(typeface, QByteArray::number(number));
        EXPECT_TRUE(saveTypeface());
        EXPECT_EQ(homeFile(typeface), saved);
    }
    EXPECT_EQ(copies().size(), 9);
    for (int number = 1; number <= 9; ++number)
        EXPECT_EQ(homeFile(numberedCopy(number)), QByteArray::number(number));
}

TEST(UnreadableFile, ACopyUnderAnyOfTheNamesIsEnough)
{
    putHomeFile(numberedCopy(3), unreadable);
    putHomeFile(typeface, unreadable);
    EXPECT_TRUE(saveTypeface());
    EXPECT_EQ(copies(), QStringList{u"typeface.json.unreadable-3"_s});
}

TEST(UnreadableFile, ItsCopyHasItsMode)
{
    const mode_t mask = ::umask(0);
    for (const mode_t mode : {0600U, 0640U, 0666U, 0755U}) {
        putHomeFile(typeface, unreadable + QByteArray::number(mode));
        setMode(typeface, mode);
        ::umask(077);
        EXPECT_TRUE(saveTypeface());
        ::umask(0);
        EXPECT_EQ(modeOf(typefaceCopy), mode);
        EXPECT_EQ(modeOf(typeface), mode);
        ASSERT_TRUE(QFile::remove(homePath(typefaceCopy)));
    }
    ::umask(mask);
}

TEST(UnreadableFile, NoCopyIsWrittenThroughALink)
{
    putHomeFile(u"elsewhere"_s, "kept");
    putHomeFile(typeface, unreadable);
    ASSERT_TRUE(QFile::link(u"../elsewhere"_s, homePath(typefaceCopy)));
    ASSERT_TRUE(QFile::link(u"../nowhere"_s, homePath(numberedCopy(2))));
    EXPECT_TRUE(saveTypeface());
    EXPECT_EQ(homeFile(u"elsewhere"_s), QByteArray("kept"));
    EXPECT_EQ(homeFile(u"nowhere"_s), std::nullopt);
    EXPECT_EQ(homeFile(numberedCopy(3)), unreadable);
}

TEST(UnreadableFile, ALinkToTheSameBytesIsNoCopy)
{
    putHomeFile(u"elsewhere"_s, unreadable);
    putHomeFile(typeface, unreadable);
    ASSERT_TRUE(QFile::link(u"../elsewhere"_s, homePath(typefaceCopy)));
    EXPECT_TRUE(saveTypeface());
    EXPECT_EQ(homeFile(numberedCopy(2)), unreadable);
}

TEST(UnreadableFile, AHardLinkToTheFileIsNoCopy)
{
    putHomeFile(typeface, unreadable);
    ASSERT_EQ(::link(homePath(typeface).toUtf8().constData(), homePath(typefaceCopy).toUtf8().constData()),
              0);
    EXPECT_TRUE(saveTypeface());
    EXPECT_EQ(homeFile(typefaceCopy), saved);
    EXPECT_EQ(homeFile(numberedCopy(2)), unreadable);
}

TEST(UnreadableFile, ADirectoryOrAPipeUnderTheNameStays)
{
    putHomeFile(typeface, unreadable);
    ASSERT_TRUE(QDir().mkpath(homePath(typefaceCopy)));
    ASSERT_EQ(::mkfifo(homePath(numberedCopy(2)).toUtf8().constData(), 0600), 0);
    EXPECT_TRUE(saveTypeface());
    EXPECT_TRUE(QFileInfo(homePath(typefaceCopy)).isDir());
    EXPECT_EQ(homeFile(numberedCopy(3)), unreadable);
}

TEST(UnreadableFile, ALinkedFileIsCopiedBesideItsLink)
{
    putHomeFile(u"dotfiles/typeface.json"_s, unreadable);
    ASSERT_TRUE(QDir().mkpath(homePath(u".vantle"_s)));
    ASSERT_TRUE(QFile::link(u"../dotfiles/typeface.json"_s, homePath(typeface)));
    EXPECT_TRUE(saveTypeface());
    EXPECT_EQ(homeFile(u"dotfiles/typeface.json"_s), saved);
    EXPECT_EQ(homeFile(typefaceCopy), unreadable);
    EXPECT_EQ(copies(u"dotfiles"_s), QStringList());
}

TEST(UnreadableFile, IsSavedOverWhereItCannotBeCopied)
{
    ASSERT_EQ(::chmod(testHome().toUtf8().constData(), 0755), 0);
    putHomeFile(typeface, unreadable);
    setMode(typeface, 0666);
    setMode(u".vantle"_s, 0555);
    EXPECT_TRUE(asStranger([] { return saveTypeface(); }));
    setMode(u".vantle"_s, 0755);
    EXPECT_EQ(homeFile(typeface), saved);
    EXPECT_EQ(copies(), QStringList());
}

TEST(UnreadableFile, ADirectoryInItsPlaceIsNotCopied)
{
    ASSERT_TRUE(QDir().mkpath(homePath(typeface)));
    EXPECT_FALSE(saveTypeface());
    EXPECT_EQ(copies(), QStringList());
}

TEST(UnreadableFile, ClearingCopiesNothing)
{
    putHomeFile(u".vantle/planning.json"_s, unreadable);
    putHomeFile(u".claude/browser-patterns.json"_s, unreadable);
    Planning::clear();
    Persistence::clearBrowserPatterns();
    EXPECT_EQ(homeFile(u".vantle/planning.json"_s), std::nullopt);
    EXPECT_EQ(homeFile(u".claude/browser-patterns.json"_s), std::nullopt);
    EXPECT_EQ(copies() + copies(u".claude"_s), QStringList());
}

} // namespace
