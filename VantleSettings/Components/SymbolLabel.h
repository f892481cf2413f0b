#pragma once

#include <QWidget>

/// A symbol in the secondary colour beside a text. Decoration: not in the accessibility tree.
class SymbolLabel : public QWidget
{
    Q_OBJECT

public:
    explicit SymbolLabel(QString symbol, qreal pointSize, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    QString m_symbol;
    qreal m_pointSize;
};
