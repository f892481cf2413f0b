#include "Screenshots.h"

#include "Alerts.h"
#include "Components/Style/Look.h"
#include "FontRegistration/FontRegistration.h"
#include "Gallery.h"
#include "PageStates.h"
#include "Platform/Desktop/Appearance/FontRegistry.h"

#include <QAbstractAnimation>
#include <QAbstractEventDispatcher>
#include <QApplication>
#include <QPainter>
#include <QScreen>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

std::unique_ptr<QWidget> owned(QWidget *widget)
{
    return std::unique_ptr<QWidget>(widget);
}

/// Processes all pending events and runs every animation to its end.
void finishAnimations(const QWidget &window)
{
    const auto moves = [&window] {
        const auto animations = window.findChildren<QAbstractAnimation *>();
        return std::any_of(animations.begin(), animations.end(), [](const QAbstractAnimation *animation) {
            return animation->state() == QAbstractAnimation::Running;
        });
    };
    bool isBusy = true;
    while (isBusy || moves())
        isBusy = QAbstractEventDispatcher::instance()->processEvents(QEventLoop::AllEvents);
}

/// Everything else that is on the screen, where it stands in relation to the window.
void drawPopups(QPainter &painter, const QWidget &window)
{
    for (QWidget *other : QApplication::topLevelWidgets()) {
        if (other == &window || !other->isVisible())
            continue;
        const QPoint place = other->pos() - window.pos();
        other->render(&painter, place, QRegion(), QWidget::DrawChildren);
        other->hide();
    }
}

} // namespace

std::vector<Screenshot> allScreenshots()
{
    std::vector<Screenshot> all{
        {u"components"_s, {720, 1260}, [] { return owned(makeGallery()); }},
        {u"symbols"_s, {760, 896}, [] { return owned(makeSymbolSheet()); }},
    };
    for (const auto &part : {pageScreenshots(), alertScreenshots()})
        all.insert(all.end(), part.begin(), part.end());
    return all;
}

void installPinnedLook(QApplication &application)
{
    FontRegistration::registerBundledFonts();
    FontRegistry::system().finish();
    QApplication::setFont(QFont(u"Inter"_s, 9));
    installLook(application);
}

QString fileName(const Screenshot &screenshot, int scale)
{
    return screenshot.name + (scale == 1 ? u".png"_s : u"@%1x.png"_s.arg(scale));
}

QImage rendered(const Screenshot &screenshot, qreal scale)
{
    const std::unique_ptr<QWidget> window = screenshot.make();
    window->setAttribute(Qt::WA_DontShowOnScreen);
    window->resize(screenshot.size.isEmpty() ? window->sizeHint() : screenshot.size);
    // At the screen's trailing edge pop-ups open into the window, where the picture shows them.
    window->move(window->screen()->availableGeometry().right() + 1 - window->width(), 0);
    window->show();
    window->grab(); // some of a window is made after it was first drawn
    finishAnimations(*window);
    if (screenshot.prepare)
        screenshot.prepare(*window);
    finishAnimations(*window);
    QImage picture((QSizeF(window->size()) * scale).toSize(), QImage::Format_RGB32);
    picture.setDevicePixelRatio(scale);
    picture.fill(Qt::black);
    window->render(&picture);
    QPainter painter(&picture);
    drawPopups(painter, *window);
    return picture;
}
