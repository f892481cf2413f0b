#pragma once

#include <QAccessible>
#include <QStringList>

class QWidget;

/// Gives a widget that is no standard control the role it has for assistive technology, e.g. a page that of a
/// panel. Its name and description stay the widget's own. Call this before the widget is shown: from then on
/// its role is fixed. A Grouping is exposed as a panel everywhere; on macOS the toolkit leaves out what has
/// the role Pane.
void setAccessibleRole(QWidget *widget, QAccessible::Role role);

/// Keeps a purely visual widget, e.g. a tinted tile, out of the accessibility tree: its parent, which must be
/// a plain widget or have a role from setAccessibleRole(), leaves it out.
void markAsDecoration(QWidget *widget);

/// Ties a text, which is a label or a widget with a role from setAccessibleRole(), to the control that has it
/// as its description: a screen reader then reads the text with the control, and not again where it reads the
/// texts of a page. The control outlives the text.
void setDescribes(QWidget *text, QWidget *control);

/// Changes the accessible name or description only where it differs: assistive technology would be told of an
/// equal one, too.
void changeAccessibleName(QWidget *widget, const QString &name);
void changeAccessibleDescription(QWidget *widget, const QString &description);

/// The same for a name or description that is made of several texts, some of which may be long: they are
/// joined only when assistive technology asks. They come before the widget's own. For widgets with a role
/// from setAccessibleRole() and for AccessibleButton.
void changeAccessibleNameParts(QWidget *widget, const QStringList &parts);
void changeAccessibleDescriptionParts(QWidget *widget, const QStringList &parts);

/// Sets what screen readers say instead of a button's name, e.g. words for the glyphs in it. The accessible
/// name stays.
void setSpokenName(QWidget *button, const QString &words);
