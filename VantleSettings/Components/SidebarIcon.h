#pragma once

#include "Foundation/SystemColor.h"

#include <QWidget>

/// A small tinted tile with a white symbol. Decoration: not in the accessibility tree.
class SidebarIcon : public QWidget
{
    Q_OBJECT

public:
    explicit SidebarIcon(QString symbol, SystemColor tint, QWidget *parent = nullptr);

    const QString &symbol() const { return m_symbol; }
    SystemColor tint() const { return m_tint; }
    void setSymbol(const QString &symbol, SystemColor tint);

    QSize sizeHint() const override;

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_symbol;
    SystemColor m_tint;
};

/// The tile itself, for views that paint their rows.
void drawSidebarIcon(QPainter &painter, const QRectF &tile, const QString &symbol, SystemColor tint);
