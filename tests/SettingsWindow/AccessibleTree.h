#pragma once

#include <QAccessible>
#include <QString>

#include <functional>

/// Calls `visit` for each accessible object below `root` that is showing, with its depth.
void walk(QAccessibleInterface *root, const std::function<void(QAccessibleInterface *, int depth)> &visit);

/// The accessible objects below `root`: a line each, indented by depth, with role, name,
/// label, description, editable text, and the states that matter.
QString outline(QAccessibleInterface *root);
