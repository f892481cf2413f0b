#pragma once

#include "Persistence/BrowserPatterns.h"
#include "PlanningProjects/PlanningProject.h"

#include <vector>

/// The fixed sample data that the window shows instead of the user's in demo mode.
namespace DemoData
{

/// Three projects with two patterns each.
const Persistence::BrowserPatterns &browserPatterns();

/// Three projects, with fresh identifiers each time; their folders need not exist.
std::vector<PlanningProject> planningProjects();

} // namespace DemoData
