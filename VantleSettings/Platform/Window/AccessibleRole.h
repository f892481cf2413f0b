#pragma once

#include <QAccessible>

class QWidget;

/// Gives a widget that is no standard control the role it has for assistive technology, e.g. a page that of a
/// panel. Its name and description stay the widget's own. Call it before the widget is
/// shown: from then on its role is fixed. A Grouping is heard as a panel everywhere; on macOS the toolkit
/// leaves out what has the role Pane.
void setAccessibleRole(QWidget *widget, QAccessible::Role role);

/// Keeps a widget that is there for the eye only, e.g. a tinted tile, out of the accessibility tree: its
/// parent, a plain widget or one with a role from above, leaves it out.
void markAsDecoration(QWidget *widget);
