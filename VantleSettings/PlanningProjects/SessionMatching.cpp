#include "PlanningProjects/SessionMatching.h"

#include "Foundation/Text.h"
#include "Platform/Files/Path.h"

#include <algorithm>
#include <unordered_map>

namespace
{

QString normalized(const QString &path)
{
    return Text::composed(Path::standardizing(path));
}

/// The hash of a path (FNV-1a over its units). It is computed unit by unit, so the hashes of all directories
/// above are intermediate results.
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

struct Project {
    QString path;
    std::int64_t sessions = 0;
};

/// Counts sessions per project directory.
class Projects
{
public:
    /// The project with this path, added where there is none. The reference stays valid.
    const Project &add(const QString &path)
    {
        PathHash hash;
        for (const QChar unit : path)
            hash.add(unit);
        m_lengths.resize(std::max(m_lengths.size(), std::size_t(path.size()) + 1));
        m_lengths[std::size_t(path.size())] = true;
        const Project *known = find(path, hash.value());
        return known ? *known : m_projects.emplace(hash.value(), Project{path})->second;
    }

    void addSessions(const QString &directory, std::int64_t sessions)
    {
        visitDirectories(directory, [&](QStringView above, std::uint64_t hash) {
            const auto length = std::size_t(above.size());
            if (length >= m_lengths.size() || !m_lengths[length])
                return;
            if (Project *project = find(above, hash))
                project->sessions += sessions;
        });
    }

private:
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
    std::vector<bool> m_lengths; ///< by length: whether a project's path has it; most directories' do not
};

} // namespace

std::vector<std::int64_t>
PlanningProjects::countSessions(const QStringList &projectPaths,
                                const std::vector<Persistence::SessionDirectory> &sessions)
{
    Projects projects;
    std::vector<const Project *> counted;
    counted.reserve(size_t(projectPaths.size()));
    for (const QString &path : projectPaths)
        counted.push_back(&projects.add(path.isEmpty() ? path : normalized(path)));
    for (const Persistence::SessionDirectory &directory : sessions)
        projects.addSessions(normalized(directory.path), directory.sessions);
    std::vector<std::int64_t> counts;
    counts.reserve(counted.size());
    for (const Project *project : counted)
        counts.push_back(project->sessions);
    return counts;
}
