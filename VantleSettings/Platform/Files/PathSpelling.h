#pragma once

#include <QString>

/// The spelling that this system prefers for a standardised path, where it has two for it.
QString systemSpelling(const QString &path);
