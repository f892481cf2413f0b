#include "Components/MenuButton.h"

#include <QAccessibleWidget>
#include <QMenu>

namespace
{

/// The toolkit hears a button with a menu as something else than a push button.
class HeardMenuButton : public QAccessibleWidget
{
public:
    explicit HeardMenuButton(MenuButton *button) : QAccessibleWidget(button, QAccessible::Button) {}

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
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

    QStringList actionNames() const override
    {
        return QStringList{pressAction()} + QAccessibleWidget::actionNames();
    }
    void doAction(const QString &action) override
    {
        if (action == pressAction())
            button()->click();
        else
            QAccessibleWidget::doAction(action);
    }

private:
    MenuButton *button() const { return static_cast<MenuButton *>(widget()); }
};

QAccessibleInterface *heardMenuButton(const QString &, QObject *object)
{
    auto *button = qobject_cast<MenuButton *>(object);
    return button ? new HeardMenuButton(button) : nullptr;
}

} // namespace

MenuButton::MenuButton(const Symbol &symbol, QWidget *parent)
    : IconButton(symbol, {}, parent), m_menu(new QMenu(this))
{
    QAccessible::installFactory(heardMenuButton); // once, however often it is asked to
    // Not as the button's own menu, which would hold the program up in a nested event loop while it is open.
    connect(this, &QPushButton::clicked, this, [this] {
        m_menu->clear();
        Q_EMIT menuNeeded(*m_menu);
        m_menu->popup(mapToGlobal(QPoint(0, height())));
    });
}
