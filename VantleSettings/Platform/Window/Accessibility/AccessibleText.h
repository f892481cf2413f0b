#pragma once

#include <QString>

/// A name or description as assistive technology gets it: the whole text, or, where no message of its bus
/// could carry that, the beginning, which then ends with "…".
QString accessibleText(const QString &text);
