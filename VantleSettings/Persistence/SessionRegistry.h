#pragma once

#include <QString>

#include <cstdint>
#include <vector>

namespace Persistence
{

/// A working directory of the agent's sessions, as the registry first spells it.
struct SessionDirectory {
    QString path;
    std::int64_t sessions = 0; ///< the number of sessions in it

    bool operator==(const SessionDirectory &) const = default;
};

/// The distinct working directories in the registry, in order of first appearance; sessions without one are
/// left out. Empty unless the registry is an array of nothing but objects.
std::vector<SessionDirectory> sessionDirectories();

} // namespace Persistence
