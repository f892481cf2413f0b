#include "Platform/Keyboard/KeyRepeatDetector.h"

#include <QKeyEvent>

KeyRepeatDetector::Moment::Moment(const QKeyEvent &event)
    : scanCode(event.nativeScanCode()), time(event.timestamp())
{
}

bool KeyRepeatDetector::isRepeat(const QKeyEvent &event)
{
    const Moment moment(event);
    if (event.type() == QEvent::KeyRelease) {
        m_lastRelease = moment;
        return false;
    }
    return moment.scanCode != 0 && moment.time != 0 && moment == m_lastRelease;
}
