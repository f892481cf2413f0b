#pragma once

#include "PlanningProjects/PlanningProject.h"

#include <QString>

#include <optional>
#include <vector>

/// The projects of the planning root's manifest, `projects.toml`.
namespace PlanningProjects
{

/// The manifest's path; nothing for an absent or empty root. The root is used unchanged: `~` is not expanded,
/// and the path is not standardised.
std::optional<QString> tomlPath(const std::optional<QString> &root);

/// The projects in manifest order, read afresh; empty when there is no readable manifest.
std::vector<PlanningProject> load(const std::optional<QString> &root);

} // namespace PlanningProjects
