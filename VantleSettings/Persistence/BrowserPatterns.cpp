#include "Persistence/HomeFile.h"
#include "Persistence/Persistence.h"

using namespace Qt::StringLiterals;

namespace
{

const QString patternsFile = u".claude/browser-patterns.json"_s;

std::optional<QStringList> texts(const Json::Value &array)
{
    if (!array.isArray())
        return std::nullopt;
    QStringList texts;
    for (const Json::Value &element : array.elements()) {
        const auto text = element.text();
        if (!text)
            return std::nullopt;
        texts.append(*text);
    }
    return texts;
}

/// All roots with their patterns; nothing when any of it is invalid.
std::optional<Persistence::BrowserPatterns> allPatterns(const Json::Value &top)
{
    if (!top.isObject())
        return std::nullopt;
    Persistence::BrowserPatterns patterns;
    for (const auto &[root, value] : top.members()) {
        const auto list = texts(value);
        if (!list)
            return std::nullopt;
        patterns.emplace_hint(patterns.end(), root, *list);
    }
    return patterns;
}

/// The lines of a row, trimmed, without the empty ones. Only a line feed ends a line: a carriage return that
/// was pasted belongs to its pattern.
QStringList patterns(const QString &urls)
{
    QStringList patterns;
    for (const QStringView line : QStringView(urls).tokenize(u'\n')) {
        if (const QStringView pattern = Text::trimmed(line); !pattern.isEmpty())
            patterns.append(pattern.toString());
    }
    return patterns;
}

} // namespace

Persistence::BrowserPatterns Persistence::loadBrowserPatterns()
{
    return HomeFile::load(patternsFile, allPatterns).value_or(BrowserPatterns());
}

bool Persistence::saveBrowserPatterns(const BrowserPatterns &patterns)
{
    Json::Object object;
    for (const auto &[root, list] : patterns)
        object.emplace_back(root, Json::Array(list.begin(), list.end()));
    return HomeFile::save(patternsFile, object, allPatterns);
}

void Persistence::clearBrowserPatterns()
{
    HomeFile::remove(patternsFile);
}

Persistence::BrowserPatterns Persistence::browserPatterns(const std::vector<BrowserConfigProject> &rows)
{
    BrowserPatterns result;
    for (const BrowserConfigProject &row : rows) {
        if (const QStringList list = patterns(row.urls); !list.isEmpty())
            result[row.root] = list;
    }
    return result;
}
