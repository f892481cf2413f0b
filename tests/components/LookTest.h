#pragma once

#include "Components/Style/Look.h"

#include <QAccessible>
#include <QApplication>
#include <QCoreApplication>
#include <QFont>
#include <QStringList>
#include <QWidget>

#include <gtest/gtest.h>

/// A case under the window's own look, with the face that the pictures are pinned to.
class LookTest : public testing::Test
{
protected:
    static void SetUpTestSuite() { useTextScale(1); }

    /// As on a desktop whose font is this much larger than usual.
    static void useTextScale(qreal scale)
    {
        QFont font(QStringLiteral("Inter"));
        font.setPointSizeF(11 * scale);
        QApplication::setFont(font);
        installLook(*qApp);
    }

    /// Shows a widget at a size, without a native window.
    static void show(QWidget &widget, QSize size)
    {
        widget.setAttribute(Qt::WA_DontShowOnScreen);
        widget.resize(size);
        widget.show();
        QCoreApplication::processEvents();
    }

    /// Role and name of a widget and of all that is visible within it, as assistive technology gets them;
    /// children are indented.
    static QStringList outline(QWidget &widget)
    {
        QStringList lines;
        addLines(lines, QAccessible::queryAccessibleInterface(&widget), 0);
        return lines;
    }

private:
    static void addLines(QStringList &lines, const QAccessibleInterface *heard, int depth)
    {
        const QLatin1String role(qAccessibleRoleString(heard->role()));
        lines += QString(depth, u' ') + role + u' ' + heard->text(QAccessible::Name);
        for (int i = 0; i < heard->childCount(); ++i) {
            ASSERT_NE(heard->child(i), nullptr);
            EXPECT_EQ(heard->indexOfChild(heard->child(i)), i);
            if (!heard->child(i)->state().invisible)
                addLines(lines, heard->child(i), depth + 1);
        }
    }
};
