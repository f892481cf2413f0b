#pragma once

#include "Components/Buttons.h"

/// An icon button that opens a menu, which is filled each time it opens. Exposed as a push button whose
/// accessible child is the menu.
class MenuButton : public IconButton
{
    Q_OBJECT

public:
    explicit MenuButton(const Symbol &symbol, QWidget *parent = nullptr);

    QMenu &menu() const { return *m_menu; }

Q_SIGNALS:
    /// The menu is empty and about to open: add its items.
    void menuNeeded(QMenu &menu);

private:
    QMenu *m_menu;
};
