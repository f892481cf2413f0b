#pragma once

#include <QStringView>

namespace PlanningProjects
{

/// Whether the printable ASCII character at this index is an extended grapheme cluster by itself: neither the
/// preceding nor the following scalar joins it.
bool standsAlone(QStringView text, qsizetype index);

} // namespace PlanningProjects
