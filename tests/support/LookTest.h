#pragma once

#include "Components/Style/Look.h"

#include <QAccessible>
#include <QApplication>
#include <QCoreApplication>
#include <QFont>
#include <QStringList>
#include <QWidget>

#include <gtest/gtest.h>

/// A test under the window's own style, with the font that the reference pictures are made with.
class LookTest : public testing::Test
{
protected:
    static void SetUpTestSuite() { useTextScale(1); }

    /// Installs the style as on a desktop whose font is larger than usual by this factor.
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

    /// The role and name of a widget and of its visible descendants, as assistive technology gets them: a
    /// line each, children indented.
    static QStringList outline(QWidget &widget)
    {
        QStringList lines;
        addLines(lines, QAccessible::queryAccessibleInterface(&widget), 0);
        return lines;
    }

private:
    static void addLines(QStringList &lines, const QAccessibleInterface *accessible, int depth)
    {
        const QLatin1String role(qAccessibleRoleString(accessible->role()));
        lines += QString(depth, u' ') + role + u' ' + accessible->text(QAccessible::Name);
        for (int i = 0; i < accessible->childCount(); ++i) {
            ASSERT_NE(accessible->child(i), nullptr);
            EXPECT_EQ(accessible->indexOfChild(accessible->child(i)), i);
            if (!accessible->child(i)->state().invisible)
                addLines(lines, accessible->child(i), depth + 1);
        }
    }
};
