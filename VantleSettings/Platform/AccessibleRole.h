#pragma once

#include <QAccessible>

class QWidget;

/// Gives a widget that is no standard control the role it has for assistive technology, e.g. a page that of a
/// panel. Its name and description stay the widget's own. Call it before the widget is
/// named or shown: from then on its role is fixed.
void setAccessibleRole(QWidget *widget, QAccessible::Role role);
