#pragma once

#include <QBasicTimer>
#include <QObject>

class QScrollBar;

/// Lets an overlay scroll bar appear when it scrolls or the pointer is over it, and fade away a moment later.
class ScrollBarFade : public QObject
{
    Q_OBJECT

public:
    /// The bar owns the object.
    explicit ScrollBarFade(QScrollBar *bar);

    /// The bar's present opacity, from 0 to 1; 1 for a bar that does not fade.
    static qreal opacity(const QWidget *bar);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    void appear();

    QScrollBar *m_bar;
    QBasicTimer m_rest; ///< runs until the bar starts to fade
    QBasicTimer m_step; ///< runs between two steps of fading
    qreal m_opacity = 0;
};
