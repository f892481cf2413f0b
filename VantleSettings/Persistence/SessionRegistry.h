#pragma once

#include <QString>
#include <QStringList>

#include <cstdint>
#include <vector>

namespace Persistence
{

/// The number of elements of the agent's session registry, `~/.vantle/sessions.json`; 0 where it is no array.
std::int64_t sessionsCount();

/// The distinct working directories of the registry's sessions, in order of first appearance.
QStringList knownProjects();

/// A working directory of the agent's sessions, as the registry first spells it.
struct SessionDirectory {
    QString path;
    std::int64_t sessions = 0; ///< the number of sessions in it

    bool operator==(const SessionDirectory &) const = default;
};

/// The same directories with their numbers of sessions; sessions without a directory are left out. Empty
/// unless the registry is an array of nothing but objects.
std::vector<SessionDirectory> sessionDirectories();

} // namespace Persistence
