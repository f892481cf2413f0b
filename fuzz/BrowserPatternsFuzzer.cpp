#include "Foundation/Json.h"
#include "Fuzzing.h"
#include "Persistence/BrowserPatterns.h"

/// What is loaded survives a save, and the rows made of it give it back, but for roots without patterns.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes = inputBytes(data, size);
    const OneFile file(bytes);
    const auto patterns = Persistence::loadBrowserPatterns();
    MUST(patterns.empty() || Json::Document::parse(bytes));
    MUST(Persistence::saveBrowserPatterns(patterns) && Persistence::loadBrowserPatterns() == patterns);

    std::vector<BrowserConfigProject> rows;
    for (const auto &[root, list] : patterns)
        rows.push_back({.root = root, .urls = list.joined()});
    const auto edited = Persistence::browserPatterns(rows);
    for (const auto &[root, list] : edited) {
        MUST(patterns.contains(root) && !list.isEmpty());
        for (qsizetype i = 0; i < list.size(); ++i) {
            const QStringView pattern = list[i];
            MUST(!pattern.isEmpty() && !pattern.contains(u'\n') && Text::trimmed(pattern) == pattern);
        }
    }
    MUST(Persistence::saveBrowserPatterns(edited) && Persistence::loadBrowserPatterns() == edited);
    return 0;
}
