#pragma once

#include <QObject>
#include <QPointer>

class QApplication;
class QFocusFrame;

/// The ring around the control that has the keyboard focus, shown when the focus came by the keyboard and
/// never after a click. One for the whole application, which owns it.
class FocusRing : public QObject
{
    Q_OBJECT

public:
    explicit FocusRing(QApplication &application);

    /// Puts the ring of `control` around `frame`, a widget around it that draws its background.
    static void setFrame(QWidget *control, QWidget *frame);

protected:
    bool eventFilter(QObject *object, QEvent *event) override;

private:
    void follow(QWidget *focused);

    QPointer<QFocusFrame> m_frame; ///< made when first needed; deleted with the window it is in
    bool m_byKeyboard = false;     ///< whether Tab was pressed after the last mouse press
};
