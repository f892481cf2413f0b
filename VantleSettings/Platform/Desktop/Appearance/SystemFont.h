#pragma once

#include <QFont>

/// The font of the system's own texts.
QFont systemFont();

/// How much larger than usual the user wants texts: 1 or more.
qreal systemTextScale();
