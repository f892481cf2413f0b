#include "PlanningProjects/SessionMatching.h"

#include "Platform/Path.h"
#include "Platform/Text.h"

#include <unordered_map>

namespace
{

QString normalized(const QString &path)
{
    return Text::composed(Path::standardizing(path));
}

/// The hash of a path (FNV-1a over its units). It is built unit by unit, so on the way to a path's end it
/// passes through the hashes of all directories above.
class PathHash
{
public:
    void add(QChar unit) { m_value = (m_value ^ unit.unicode()) * 0x100000001B3U; }
    std::uint64_t value() const { return m_value; }

private:
    std::uint64_t m_value = 0xCBF29CE484222325U;
};

/// Calls `visit` with each directory from the top down to the path itself, and with its hash.
template <class Visit>
void visitDirectories(QStringView path, Visit visit)
{
    PathHash hash;
    for (qsizetype length = 1; length <= path.size(); ++length) {
        hash.add(path[length - 1]);
        const bool isRoot = length == 1 && path[0] == u'/';
        if (isRoot || length == path.size() || path[length] == u'/')
            visit(path.first(length), hash.value());
    }
}

/// Counts sessions per project directory.
class Projects
{
public:
    void add(const QString &path)
    {
        const std::uint64_t hash = hashOf(path);
        if (!find(path, hash))
            m_projects.emplace(hash, Project{path});
    }

    void addSessions(const QString &directory, std::int64_t sessions)
    {
        visitDirectories(directory, [&](QStringView above, std::uint64_t hash) {
            if (Project *project = find(above, hash))
                project->sessions += sessions;
        });
    }

    std::int64_t sessions(const QString &path) { return find(path, hashOf(path))->sessions; }

private:
    struct Project {
        QString path;
        std::int64_t sessions = 0;
    };

    static std::uint64_t hashOf(const QString &path)
    {
        PathHash hash;
        for (const QChar unit : path)
            hash.add(unit);
        return hash.value();
    }

    Project *find(QStringView path, std::uint64_t hash)
    {
        const auto [first, last] = m_projects.equal_range(hash);
        for (auto project = first; project != last; ++project) {
            if (project->second.path == path)
                return &project->second;
        }
        return nullptr;
    }

    std::unordered_multimap<std::uint64_t, Project> m_projects;
};

} // namespace

std::vector<std::int64_t>
PlanningProjects::countSessions(const QStringList &projectPaths,
                                const std::vector<Persistence::SessionDirectory> &sessions)
{
    Projects projects;
    QStringList normalizedPaths;
    for (const QString &path : projectPaths) {
        normalizedPaths.append(path.isEmpty() ? path : normalized(path));
        projects.add(normalizedPaths.back());
    }
    for (const Persistence::SessionDirectory &directory : sessions)
        projects.addSessions(normalized(directory.path), directory.sessions);
    std::vector<std::int64_t> counts;
    for (const QString &path : normalizedPaths)
        counts.push_back(projects.sessions(path));
    return counts;
}
