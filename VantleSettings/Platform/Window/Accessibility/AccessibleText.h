#pragma once

#include <QString>

/// A name or description as assistive technology gets it: the whole text, or, where that is too long for a
/// message of the accessibility bus, its beginning followed by "…".
QString accessibleText(const QString &text);
