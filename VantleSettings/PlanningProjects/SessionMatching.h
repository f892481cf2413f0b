#pragma once

#include "Persistence/SessionRegistry.h"

#include <QStringList>

#include <cstdint>
#include <vector>

namespace PlanningProjects
{

/// For each project path, the number of sessions that run in that directory or below; 0 for an empty path.
/// Both sides are compared in one standard spelling, links not resolved. The work grows with the number of
/// projects plus that of directories, not with their product.
std::vector<std::int64_t> countSessions(const QStringList &projectPaths,
                                        const std::vector<Persistence::SessionDirectory> &sessions);

} // namespace PlanningProjects
