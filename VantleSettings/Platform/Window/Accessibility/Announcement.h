#pragma once

#include <QString>

class QWidget;

/// Makes a screen reader say what has happened where no control has changed, e.g. "Path copied". Does nothing
/// where no screen reader runs. `widget` is the one that the message is about.
void announce(QWidget *widget, const QString &message);
