#pragma once

#include <QStringView>

namespace PlanningProjects
{

/// Whether the unit at this index, a sign of ASCII, is a character of its own: an extended grapheme cluster
/// that neither what follows it nor what precedes it is part of.
bool standsAlone(QStringView text, qsizetype index);

} // namespace PlanningProjects
