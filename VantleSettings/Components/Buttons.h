#pragma once

#include "Platform/Desktop/Appearance/Symbol.h"

#include <QPushButton>

/// A push button in one of two heights. Its text is shown literally: "&" marks no mnemonic.
class PushButton : public QPushButton
{
    Q_OBJECT

public:
    enum class Size { small, large };

    explicit PushButton(const QString &text, Size size = Size::small, QWidget *parent = nullptr);

    Size buttonSize() const { return m_size; }

private:
    Size m_size;
};

/// An icon button: a symbol in the secondary colour, in a frame of 22 by 22 points. The tooltip is its
/// accessible name unless another one is set.
class IconButton : public QPushButton
{
    Q_OBJECT

public:
    explicit IconButton(Symbol symbol, const QString &toolTip, QWidget *parent = nullptr);

    const Symbol &symbol() const { return m_symbol; }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    Symbol m_symbol;
};

/// Makes a key combination click this button while it is shown and enabled. The click happens at once. The
/// button's own shortcut would show it pressed for a moment first, and the window may close meanwhile.
void clickOn(const QKeySequence &keys, QPushButton *button);

/// A link button: a text in the accent colour.
class LinkButton : public QPushButton
{
    Q_OBJECT

public:
    explicit LinkButton(const QString &text, QWidget *parent = nullptr);

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    void paintEvent(QPaintEvent *event) override;
};
