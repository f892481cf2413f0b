#pragma once

#include <QString>

/// The desktop's clipboard.
class Pasteboard
{
public:
    virtual ~Pasteboard() = default;
    Q_DISABLE_COPY_MOVE(Pasteboard)

    /// Replaces whatever the clipboard holds by this plain text.
    virtual void setText(const QString &text) = 0;

    static Pasteboard &system();

protected:
    Pasteboard() = default;
};
