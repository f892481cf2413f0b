#pragma once

#include <QString>
#include <QStringView>

#include <map>
#include <optional>
#include <utility>
#include <vector>

/// Reading the manifest `projects.toml`: blocks headed `[[projects]]`, each of assignments on one line with
/// bare or quoted text, and comments. Everything else is skipped. Characters are whole grapheme clusters: a
/// quote followed by a combining mark, for example, is no quote. All views point into the text that was
/// passed.
namespace PlanningProjects
{

/// The assignments of one block, by key in composed form.
using Table = std::map<QString, QStringView>;

/// The blocks, in order; those without assignments too.
std::vector<Table> parseProjectsTOML(QStringView text);

/// Key and value of one trimmed line, without comment and quotes; nothing without a `=`.
std::optional<std::pair<QStringView, QStringView>> parseKeyValue(QStringView line);

/// Where a comment begins in a value.
std::optional<qsizetype> firstUnquotedHash(QStringView value);

} // namespace PlanningProjects
