#pragma once

#include <QByteArray>
#include <QList>
#include <QPoint>
#include <QRect>
#include <QSize>
#include <QString>

#include <optional>

/// A window's frame as a file keeps it. Size and origin are those of the client area, without the frame that
/// the desktop puts around it.
///
/// The toolkit's saveGeometry() is no substitute: version 6.4 brings a window as large as its screen back 20
/// pixels lower, and a window of which a single column was on a screen to that place, where the user can't
/// drag it.
struct SavedFrame {
    QSize size;
    std::optional<QPoint> origin = {}; ///< none where the desktop places windows itself
    bool maximized = false;            ///< size and origin are then what the window returns to

    bool operator==(const SavedFrame &) const = default;

    /// One line, e.g. `VantleSettingsWindow=860x640+210+192`, with ` maximized` after it where it was.
    QByteArray line(const QString &name) const;

    /// The frame of that name in a file's bytes; nothing where there is no valid one.
    static std::optional<SavedFrame> find(const QByteArray &bytes, const QString &name);

    /// Where a window of this frame goes on these screens, the primary one first: where it was if enough of
    /// its top is visible there to drag it, else in the middle of the primary screen; nothing larger than its
    /// screen.
    QRect placed(const QList<QRect> &screens) const;

private:
    bool isPlausible() const;
};
