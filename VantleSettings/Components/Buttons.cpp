#include "Components/Buttons.h"

#include "Components/Drawing/Painting.h"
#include "Components/Drawing/Tokens.h"
#include "Platform/Desktop/Appearance/Palette.h"
#include "Platform/Window/Accessibility/AccessibleWidget.h"

#include <QPainter>
#include <QShortcut>

#include <utility>

namespace
{

/// The opacity of a borderless button: disabled, pressed or neither.
qreal opacity(const QPushButton &button)
{
    if (!button.isEnabled())
        return 0.4;
    return button.isDown() ? 0.6 : 1;
}

QAccessibleInterface *buttonFactory(const QString &, QObject *object)
{
    const bool ours = qobject_cast<PushButton *>(object) || qobject_cast<IconButton *>(object) ||
                      qobject_cast<LinkButton *>(object);
    return ours ? new AccessibleButton(static_cast<QWidget *>(object)) : nullptr;
}

QString withoutMnemonics(QString text)
{
    return text.replace(u'&', QStringLiteral("&&"));
}

} // namespace

PushButton::PushButton(const QString &text, Size size, QWidget *parent)
    : QPushButton(withoutMnemonics(text), parent), m_size(size)
{
    QAccessible::installFactory(buttonFactory); // has no effect after the first call
    setTextStyle(*this, size == Size::small ? TextStyle::size12 : TextStyle::size13);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    setFocusPolicy(Qt::StrongFocus);
    setAttribute(size == Size::small ? Qt::WA_MacSmallSize : Qt::WA_MacNormalSize);
}

IconButton::IconButton(Symbol symbol, const QString &toolTip, QWidget *parent)
    : QPushButton(parent), m_symbol(std::move(symbol))
{
    QAccessible::installFactory(buttonFactory);
    setFixedSize(Tokens::iconTile, Tokens::iconTile);
    setFlat(true);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
    setToolTip(toolTip);
    setAccessibleName(toolTip);
}

QSize IconButton::sizeHint() const
{
    return {Tokens::iconTile, Tokens::iconTile};
}

void IconButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setOpacity(opacity(*this));
    if (underMouse() && isEnabled())
        fillShape(painter, continuousRectangle(rect(), Tokens::buttonRadius), Tokens::quaternaryFill);
    drawSymbol(painter, m_symbol, rect(), textColor(TextColor::secondary));
}

void clickOn(const QKeySequence &keys, QPushButton *button)
{
    auto *shortcut = new QShortcut(keys, button);
    shortcut->setAutoRepeat(false);
    QObject::connect(shortcut, &QShortcut::activated, button, &QPushButton::click);
}

LinkButton::LinkButton(const QString &text, QWidget *parent) : QPushButton(withoutMnemonics(text), parent)
{
    QAccessible::installFactory(buttonFactory);
    setTextStyle(*this, TextStyle::size13);
    setFlat(true);
    setAttribute(Qt::WA_Hover);
    setFocusPolicy(Qt::StrongFocus);
}

QSize LinkButton::sizeHint() const
{
    return fontMetrics().size(Qt::TextShowMnemonic, text());
}

void LinkButton::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    painter.setOpacity(opacity(*this));
    painter.setPen(accentColor());
    painter.drawText(rect(), Qt::AlignCenter | Qt::TextHideMnemonic, text());
}
