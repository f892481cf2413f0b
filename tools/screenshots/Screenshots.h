#pragma once

#include <QImage>
#include <QString>
#include <QWidget>

#include <functional>
#include <memory>
#include <vector>

/// A picture of the window or of a part of it.
struct Screenshot {
    QString name;
    QSize size; ///< in points; empty for the size it wants
    std::function<std::unique_ptr<QWidget>()> make;
};

/// All pictures, in the order in which they are worth looking at.
std::vector<Screenshot> allScreenshots();

/// The picture at this many device pixels to a point.
QImage rendered(const Screenshot &screenshot, qreal scale);
