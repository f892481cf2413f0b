#pragma once

#include <QtGlobal>

class QKeyEvent;

/// Recognises the repeats of a held key where the toolkit does not. X11 repeats a held key as a release and a
/// press with the same time; the toolkit recognises these only when the press has arrived before it handles
/// the release.
class KeyRepeatDetector
{
public:
    /// Whether a press, or its shortcut override, is a repeat. Call this for every key event of the window
    /// system, in their order.
    bool isRepeat(const QKeyEvent &event);

private:
    struct Moment {
        Moment() = default;
        explicit Moment(const QKeyEvent &event);
        bool operator==(const Moment &) const = default;

        quint32 scanCode = 0; ///< 0 where no key of a keyboard was pressed
        quint64 time = 0;     ///< in milliseconds of the window system's clock, 0 where it gave none
    };

    Moment m_lastRelease;
};
