#pragma once

#include <QString>

/// The spelling that this system prefers for a standardised path that it can spell in two ways.
QString systemSpelling(const QString &path);
