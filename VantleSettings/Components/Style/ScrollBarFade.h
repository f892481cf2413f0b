#pragma once

#include <QBasicTimer>
#include <QObject>

class QScrollBar;

/// Lets an overlay scroll bar appear when it scrolls or the pointer is over it, and fade away a moment later.
class ScrollBarFade : public QObject
{
    Q_OBJECT

public:
    /// Belongs to the bar.
    explicit ScrollBarFade(QScrollBar *bar);

    /// How visible the bar is at this moment, from 0 to 1.
    static qreal opacity(const QWidget *bar);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;
    void timerEvent(QTimerEvent *event) override;

private:
    void appear();

    QScrollBar *m_bar;
    QBasicTimer m_rest; ///< until it starts to fade
    QBasicTimer m_step; ///< between two steps of the fading
    qreal m_opacity = 0;
};
