#pragma once

#include "Platform/Keyboard/KeyRepeatDetector.h"

#include <QApplication>

class QKeyEvent;

/// The application object. Makes a held key count as one press: every repeat is marked
/// (`QKeyEvent::isAutoRepeat`) before anything else sees it. A repeat triggers no menu item and no shortcut,
/// and outside of text fields it presses, chooses or cancels nothing. Text fields, lists and scrolling get
/// the repeats like other keys.
class Application : public QApplication
{
public:
    using QApplication::QApplication;

    bool notify(QObject *receiver, QEvent *event) override;

private:
    bool notifyKey(QObject &receiver, QKeyEvent &event);
    bool notifyRepeat(QObject &receiver, QKeyEvent &event);

    KeyRepeatDetector m_detector;
};
