#pragma once

#include <QAccessible>
#include <QCoreApplication>
#include <QWidget>

#include <gtest/gtest.h>

/// The one widget of this type with this accessible name, below `root`.
template <class Widget>
Widget *named(const QWidget &root, const QString &name)
{
    Widget *found = nullptr;
    for (Widget *widget : root.findChildren<Widget *>()) {
        if (widget->accessibleName() != name)
            continue;
        EXPECT_FALSE(found) << "two are named " << name.toStdString();
        found = widget;
    }
    EXPECT_TRUE(found) << "none is named " << name.toStdString();
    return found;
}

/// Delivers posted events and processes pending ones.
inline void settle()
{
    QCoreApplication::sendPostedEvents();
    QCoreApplication::processEvents();
}
