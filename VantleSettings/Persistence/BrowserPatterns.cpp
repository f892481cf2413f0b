#include "Persistence/BrowserPatterns.h"

#include "Persistence/HomeFile.h"
#include "Persistence/SharedFiles.h"

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

/// The patterns of each root; nothing when any of it is invalid.
std::optional<Text::Map<Json::Value>> listsByRoot(const Json::Value &top)
{
    auto lists = top.members();
    const bool isValid = top.isObject() && std::all_of(lists.begin(), lists.end(), [](const auto &list) {
                             return list.second.isArrayOfTexts();
                         });
    return isValid ? std::optional(std::move(lists)) : std::nullopt;
}

std::optional<Persistence::BrowserPatterns> allPatterns(const Json::Value &top)
{
    const auto lists = listsByRoot(top);
    if (!lists)
        return std::nullopt;
    Persistence::BrowserPatterns patterns;
    for (const auto &[root, list] : *lists)
        patterns.emplace_hint(patterns.end(), root, list.texts());
    return patterns;
}

/// The lines of a row, trimmed, without the empty ones. Only a line feed ends a line: a carriage return that
/// was pasted belongs to its pattern.
TextList patterns(const QString &urls)
{
    auto patterns = TextList::forPartsOf(urls);
    for (const QStringView line : patterns.whole().tokenize(u'\n')) {
        if (const QStringView pattern = Text::trimmed(line); !pattern.isEmpty())
            patterns.addPart(pattern);
    }
    return patterns;
}

} // namespace

Persistence::BrowserPatterns Persistence::loadBrowserPatterns()
{
    return HomeFile::load(SharedFiles::browserPatterns.path, allPatterns).value_or(BrowserPatterns());
}

bool Persistence::saveBrowserPatterns(const BrowserPatterns &patterns)
{
    Json::Object object;
    for (const auto &[root, list] : patterns)
        object.emplace_back(root, list);
    return HomeFile::save(SharedFiles::browserPatterns.path, object, listsByRoot);
}

void Persistence::clearBrowserPatterns()
{
    HomeFile::remove(SharedFiles::browserPatterns.path);
}

Persistence::BrowserPatterns Persistence::browserPatterns(const std::vector<BrowserConfigProject> &rows)
{
    BrowserPatterns result;
    for (const BrowserConfigProject &row : rows) {
        if (TextList list = patterns(row.urls); !list.isEmpty())
            result[row.root] = std::move(list);
    }
    return result;
}
