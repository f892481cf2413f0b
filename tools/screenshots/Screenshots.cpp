#include "Screenshots.h"

#include "Gallery.h"
#include "PageStates.h"

#include <QCoreApplication>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace
{

std::unique_ptr<QWidget> owned(QWidget *widget)
{
    return std::unique_ptr<QWidget>(widget);
}

} // namespace

std::vector<Screenshot> allScreenshots()
{
    std::vector<Screenshot> all{
        {u"components"_s, {720, 1420}, [] { return owned(makeGallery()); }},
        {u"symbols"_s, {760, 896}, [] { return owned(makeSymbolSheet()); }},
    };
    for (const Screenshot &screenshot : pageScreenshots())
        all.push_back(screenshot);
    return all;
}

QImage rendered(const Screenshot &screenshot, qreal scale)
{
    const std::unique_ptr<QWidget> widget = screenshot.make();
    widget->setAttribute(Qt::WA_DontShowOnScreen);
    const QSize size = screenshot.size.isEmpty() ? widget->sizeHint() : screenshot.size;
    widget->resize(size);
    widget->show();
    QCoreApplication::processEvents();
    QCoreApplication::processEvents(); // what a page shows when it comes into view, laid out
    QImage picture((QSizeF(size) * scale).toSize(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::black);
    widget->render(&picture);
    return picture;
}
