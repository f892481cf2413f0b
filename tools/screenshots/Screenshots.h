#pragma once

#include <QImage>
#include <QString>
#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

class QApplication;

/// A picture of the window or of a part of it.
struct Screenshot {
    QString name;
    QSize size; ///< in points; empty for the size it wants
    std::function<std::unique_ptr<QWidget>()> make;
    std::function<void(QWidget &)> prepare = {}; ///< brings what is shown into the state of the picture
    bool stored = true; ///< kept in docs/screenshots; not where its texts need fonts that are not pinned
};

/// All pictures, in the order in which they are worth looking at.
std::vector<Screenshot> allScreenshots();

/// Gives the application the look and the fonts that all pictures have, whatever this desktop's own are.
void installPinnedLook(QApplication &application);

/// The name of the picture's file.
QString fileName(const Screenshot &screenshot, int scale);

/// The picture at this many device pixels to a point, pop-ups included.
QImage rendered(const Screenshot &screenshot, qreal scale);
