#include "Components/MenuButton.h"

#include "Platform/Window/Accessibility/AccessibleWidget.h"

#include <QMenu>

namespace
{

/// Has the role of a push button, which the toolkit does not give to a button with a menu.
class AccessibleMenuButton : public AccessibleButton
{
public:
    explicit AccessibleMenuButton(MenuButton *button) : AccessibleButton(button) {}

    QAccessible::State state() const override
    {
        QAccessible::State state = AccessibleButton::state();
        state.hasPopup = true;
        return state;
    }

    int childCount() const override { return 1; }
    QAccessibleInterface *child(int index) const override
    {
        return index == 0 ? QAccessible::queryAccessibleInterface(&button()->menu()) : nullptr;
    }
    int indexOfChild(const QAccessibleInterface *child) const override
    {
        return child && child->object() == &button()->menu() ? 0 : -1;
    }

private:
    MenuButton *button() const { return static_cast<MenuButton *>(widget()); }
};

QAccessibleInterface *menuButtonFactory(const QString &, QObject *object)
{
    auto *button = qobject_cast<MenuButton *>(object);
    return button ? new AccessibleMenuButton(button) : nullptr;
}

} // namespace

MenuButton::MenuButton(const Symbol &symbol, QWidget *parent)
    : IconButton(symbol, {}, parent), m_menu(new QMenu(this))
{
    QAccessible::installFactory(menuButtonFactory); // has no effect after the first call
    // Not setMenu(): the button would run a nested event loop while the menu is open.
    connect(this, &QPushButton::clicked, this, [this] {
        m_menu->clear();
        Q_EMIT menuNeeded(*m_menu);
        m_menu->popup(mapToGlobal(QPoint(0, height())));
    });
}
