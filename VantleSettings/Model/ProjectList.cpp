#include "Foundation/Text.h"
#include "Model/SettingsModel.h"
#include "Persistence/SessionRegistry.h"
#include "Platform/Files/Path.h"

#include <algorithm>

namespace
{

/// A row and what it is sorted by: its folder's name without letter case.
struct SortedRow {
    Text::SortKey folder;
    BrowserConfigProject row;
};

SortedRow sortedRow(const QString &root, const TextList &patterns)
{
    return {Text::sortKey(Text::lowercased(Path::lastComponent(root).toString())),
            {.root = root, .urls = patterns.joined()}};
}

} // namespace

std::vector<BrowserConfigProject>
SettingsModel::buildProjectList(const Persistence::BrowserPatterns &existingConfig)
{
    std::vector<SortedRow> rows;
    for (const auto &[root, patterns] : existingConfig)
        rows.push_back(sortedRow(root, patterns));
    for (const QString &root : Persistence::knownProjects()) {
        if (!existingConfig.contains(root))
            rows.push_back(sortedRow(root, {}));
    }
    std::stable_sort(rows.begin(), rows.end(),
                     [](const SortedRow &a, const SortedRow &b) { return a.folder < b.folder; });
    std::vector<BrowserConfigProject> projects;
    projects.reserve(rows.size());
    for (SortedRow &row : rows)
        projects.push_back(std::move(row.row));
    return projects;
}
