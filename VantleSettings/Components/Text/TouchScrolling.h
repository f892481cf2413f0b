#pragma once

#include <QObject>

class QAbstractScrollArea;
class QEventPoint;
class QTouchEvent;

/// Lets a finger on a touch screen scroll an area, which owns this object; a tap is a click. Without it, the
/// toolkit turns touches into mouse events, as it still does for an area whose content fits.
class TouchScrolling : public QObject
{
    Q_OBJECT

public:
    explicit TouchScrolling(QAbstractScrollArea *area);

protected:
    bool eventFilter(QObject *viewport, QEvent *event) override;

private:
    bool touch(QTouchEvent &event);
    void tap(const QEventPoint &finger) const;

    QAbstractScrollArea *m_area;
    bool m_scrolled = false; ///< whether the area has scrolled since the finger was pressed
};
