#pragma once

#include <QString>

#include <chrono>

/// The desktop's clipboard.
class Pasteboard
{
public:
    virtual ~Pasteboard() = default;
    Q_DISABLE_COPY_MOVE(Pasteboard)

    /// Replaces whatever the clipboard holds by this plain text.
    virtual void setText(const QString &text) = 0;

    static Pasteboard &system();

    /// For the end of the program: what was copied is handed to the desktop's clipboard manager. Waits no
    /// longer than this, and not at all where there is nothing to keep or no clipboard manager.
    static void finish(std::chrono::milliseconds limit);

protected:
    Pasteboard() = default;
};
