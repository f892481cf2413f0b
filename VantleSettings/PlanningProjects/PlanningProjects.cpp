#include "PlanningProjects/PlanningProjects.h"

#include "Foundation/Seam.h"
#include "Foundation/Text.h"
#include "PlanningProjects/Manifest.h"
#include "PlanningProjects/SessionMatching.h"
#include "Platform/Files/FileSystem.h"
#include "Platform/Files/Path.h"

using namespace Qt::StringLiterals;

namespace
{

/// The text of these bytes, without a byte order mark at its start.
std::optional<QString> decoded(const QByteArray &bytes)
{
    auto text = Text::decoded(bytes);
    if (text && text->startsWith(QChar::ByteOrderMark))
        text->remove(0, 1);
    return text;
}

std::optional<QString> readManifest(const std::optional<QString> &root)
{
    const auto path = PlanningProjects::tomlPath(root);
    const auto bytes = path ? Seam<FileSystem>::current().read(*path) : std::nullopt;
    return bytes ? decoded(*bytes) : std::nullopt;
}

QString value(const PlanningProjects::Table &table, const QString &key, const QString &otherwise = u""_s)
{
    const auto assignment = table.find(key);
    return assignment == table.end() ? otherwise : assignment->second.toString();
}

} // namespace

std::optional<QString> PlanningProjects::tomlPath(const std::optional<QString> &root)
{
    if (!root || root->isEmpty())
        return std::nullopt;
    return Path::appending(*root, u"projects.toml"_s);
}

std::vector<PlanningProject> PlanningProjects::load(const std::optional<QString> &root)
{
    const auto manifest = readManifest(root);
    if (!manifest)
        return {};
    std::vector<PlanningProject> projects;
    QStringList paths;
    for (const Table &table : parseProjectsTOML(*manifest)) {
        projects.push_back({.name = value(table, u"name"_s, u"(unnamed)"_s),
                            .path = value(table, u"path"_s),
                            .todoPath = value(table, u"todo_path"_s)});
        paths.append(projects.back().path);
    }
    const auto counts = countSessions(paths, Persistence::sessionDirectories());
    for (std::size_t i = 0; i < projects.size(); ++i)
        projects[i].sessionCount = counts[i];
    return projects;
}
