#pragma once

#include <QAccessible>
#include <QString>

#include <functional>

/// Calls `visit` for each object that assistive technology hears below `root` and that shows, with its depth.
void walk(QAccessibleInterface *root, const std::function<void(QAccessibleInterface *, int depth)> &visit);

/// What assistive technology hears below `root`: a line each, indented by depth, with role, name,
/// description, and the states that matter.
QString outline(QAccessibleInterface *root);
