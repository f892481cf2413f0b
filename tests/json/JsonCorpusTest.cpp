#include "Foundation/Json.h"
#include "HomeFiles.h"
#include "Persistence/BrowserPatterns.h"
#include "Persistence/Persistence.h"
#include "Persistence/SessionRegistry.h"
#include "Planning/Planning.h"
#include "Shortcuts/Shortcuts.h"

#include <QDir>
#include <QFile>

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <functional>
#include <vector>

using namespace Qt::StringLiterals;

namespace
{

struct Sample {
    QString name;
    QByteArray bytes;
    /// The verdict, which is part of the name.
    bool accepted() const { return name.startsWith(u"accept-"_s); }
    /// Whether the verdict is about the bytes as a whole file and not as a value inside another.
    bool onlyWhole() const
    {
        return name.startsWith(u"accept-whole-"_s) || name.startsWith(u"reject-whole-"_s);
    }
};

const std::vector<Sample> &corpus()
{
    static const auto samples = [] {
        std::vector<Sample> found;
        const QDir directory(QStringLiteral(VANTLE_JSON_CORPUS));
        for (const QString &name : directory.entryList({u"*.json"_s}, QDir::Files)) {
            QFile file(directory.filePath(name));
            EXPECT_TRUE(file.open(QFile::ReadOnly));
            found.push_back({name, file.readAll()});
        }
        return found;
    }();
    return samples;
}

/// One of the program's loaders, with the two parts of a valid file. The loader ignores the content of a
/// value between `before` and `after`, so it reads the record exactly when that value is valid JSON.
struct Reader {
    QString file;
    QByteArray before;
    QByteArray after;
    std::function<bool()> readsTheRecord;
};

const std::vector<Reader> &readers()
{
    static const std::vector<Reader> readers = {
        {u".vantle/typeface.json"_s, "{\"name\":\"system\",\"x\":", "}",
         [] { return Persistence::loadTypeface() == TypefaceOption::system; }},
        {u".vantle/green-screen.json"_s, "{\"enabled\":true,\"x\":", "}",
         [] { return Persistence::loadGreenScreen(); }},
        {u".vantle/demo-mode.json"_s, "{\"enabled\":true,\"x\":", "}",
         [] { return Persistence::loadDemoMode(); }},
        {u".vantle/terminal-backend.json"_s, "{\"backend\":\"vantle-term\",\"x\":", "}",
         [] { return Persistence::loadTerminalBackend() == TerminalBackendOption::vantleTerm; }},
        {u".vantle/updates.json"_s, "{\"automatic\":false,\"x\":", "}",
         [] { return !Persistence::loadUpdatesConfig().automatic; }},
        {u".vantle/planning.json"_s, "{\"root\":\"/plan\",\"x\":", "}",
         [] { return Planning::loadPlanningConfig() == u"/plan"_s; }},
        {u".vantle/shortcuts.json"_s, "{\"focusLast\":{\"keyCode\":1,\"modifiers\":256,\"x\":", "}}",
         [] { return Shortcuts::load().has_value(); }},
        {u".vantle/sessions.json"_s, "[{\"cwd\":\"/a\",\"x\":", "}]",
         [] { return Persistence::knownProjects() == QStringList{u"/a"_s}; }},
        {u".vantle/sessions.json"_s, "[", "]", [] { return Persistence::sessionsCount() == 1; }},
        // Of members with equal names only the first is read.
        {u".claude/browser-patterns.json"_s, "{\"/a\":[\"x\"],\"/a\":", "}",
         [] { return Persistence::loadBrowserPatterns().size() == 1; }},
    };
    return readers;
}

TEST(JsonCorpus, IsThere)
{
    EXPECT_GE(corpus().size(), 250U);
}

TEST(JsonCorpus, TheParserGivesEachFilesVerdict)
{
    for (const Sample &sample : corpus())
        EXPECT_EQ(Json::Document::parse(sample.bytes).has_value(), sample.accepted())
            << sample.name.toStdString();
}

TEST(JsonCorpus, AnotherLibraryAgreesExceptForKnownDifferences)
{
    for (const Sample &sample : corpus()) {
        const bool isOurLimit = sample.name.contains(u"-depth-"_s) || sample.name.contains(u"beyond-"_s) ||
                                sample.name.contains(u"hundred-digits"_s);
        const bool itAccepts = nlohmann::json::accept(sample.bytes.begin(), sample.bytes.end());
        // The other library takes a NUL after the document for the end of the file.
        const bool isItsLeniency = sample.name.endsWith(u"-nul-after.json"_s);
        EXPECT_TRUE(itAccepts == sample.accepted() || (itAccepts && (isOurLimit || isItsLeniency)))
            << sample.name.toStdString();
    }
}

TEST(JsonCorpus, EveryReaderAcceptsExactlyTheAcceptedFilesAsAValue)
{
    for (const Reader &reader : readers()) {
        for (const Sample &sample : corpus()) {
            if (sample.onlyWhole())
                continue;
            putHomeFile(reader.file, reader.before + sample.bytes + reader.after);
            EXPECT_EQ(reader.readsTheRecord(), sample.accepted())
                << reader.file.toStdString() << " " << sample.name.toStdString();
        }
    }
}

TEST(JsonCorpus, EveryReaderTakesItsDefaultForARejectedFile)
{
    for (const Reader &reader : readers()) {
        for (const Sample &sample : corpus()) {
            if (sample.accepted())
                continue;
            putHomeFile(reader.file, sample.bytes);
            EXPECT_FALSE(reader.readsTheRecord())
                << reader.file.toStdString() << " " << sample.name.toStdString();
            EXPECT_EQ(homeFile(reader.file), sample.bytes);
        }
    }
}

TEST(JsonCorpus, EveryReaderTakesAByteOrderMarkAndSpaceAroundItsRecord)
{
    for (const Reader &reader : readers()) {
        putHomeFile(reader.file, "\xef\xbb\xbf\n " + reader.before + "null" + reader.after + "\r\n\t");
        EXPECT_TRUE(reader.readsTheRecord()) << reader.file.toStdString();
    }
}

} // namespace
