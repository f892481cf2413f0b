#pragma once

#include "Components/Buttons.h"

/// A symbol that opens a menu, which is filled anew each time. Exposed as a push button; the menu with its
/// items is below it in the tree.
class MenuButton : public IconButton
{
    Q_OBJECT

public:
    explicit MenuButton(const Symbol &symbol, QWidget *parent = nullptr);

    QMenu &menu() const { return *m_menu; }

Q_SIGNALS:
    /// The menu, empty, is about to open.
    void menuNeeded(QMenu &menu);

private:
    QMenu *m_menu;
};
