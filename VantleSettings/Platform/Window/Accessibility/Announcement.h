#pragma once

#include <QString>

class QWidget;

/// Lets a screen reader say what has happened where no control has changed, e.g. "Path copied". Does nothing
/// where none listens. `widget` is where it happened.
void announce(QWidget *widget, const QString &message);
