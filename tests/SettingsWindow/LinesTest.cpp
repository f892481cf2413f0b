#include "Components/Drawing/Painting.h"
#include "Components/Drawing/Tokens.h"
#include "Components/SettingsGroup.h"
#include "Components/SettingsRow.h"
#include "Components/Style/Look.h"
#include "Components/Text/Label.h"
#include "FakeFonts.h"
#include "Finding.h"
#include "Model/SettingsModel.h"
#include "OutsideWorld.h"
#include "SettingsWindow/SectionPane.h"
#include "SettingsWindow/SettingsRootView.h"

#include <QApplication>
#include <QBackingStore>
#include <QImage>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <stdexcept>

using namespace Qt::StringLiterals;

namespace
{

/// A colour on top of another one.
QColor blended(const QColor &below, const QColor &above)
{
    return mixed(below, QColor(above.red(), above.green(), above.blue()), above.alphaF());
}

QColor strokeColor()
{
    QColor stroke = Tokens::separator();
    stroke.setAlphaF(stroke.alphaF() / 2);
    return blended(Tokens::cardBackground, stroke);
}

/// Whether a pixel is at least as bright as a line of this colour, up to what blending rounds away.
bool shows(const QImage &picture, QPoint pixel, const QColor &line)
{
    constexpr int rounding = 3;
    return picture.pixelColor(pixel).green() >= line.green() - rounding;
}

/// A window at the scale of this run, and what it has painted on the screen.
class Lines : public testing::TestWithParam<SettingsSection>
{
protected:
    Lines()
    {
        installLook(*qApp);
        world.put(u".vantle/demo-mode.json"_s, R"({"enabled":true})");
        model.emplace();
        model->section = GetParam();
        view.emplace(*model, 0);
        view->resize(861, 641);
        view->show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&*view));
        settle();
        settle();
    }

    SectionPane &pane()
    {
        return *qobject_cast<SectionPane *>(view->findChild<QStackedWidget *>()->currentWidget());
    }

    QImage painted()
    {
        settle();
        const auto *screen = dynamic_cast<const QImage *>(view->backingStore()->paintDevice());
        if (screen == nullptr)
            throw std::runtime_error("the window is not painted into a picture");
        return screen->copy();
    }

    /// A widget's place in the window, in points; nothing where the page doesn't show all of it.
    QRect place(const QWidget &widget)
    {
        const QRect inView(widget.mapTo(pane().viewport(), QPoint()), widget.size());
        if (!widget.isVisible() || !pane().viewport()->rect().contains(inView))
            return {};
        return {widget.mapTo(&*view, QPoint()), widget.size()};
    }

    /// How many device pixels in a row, upright or not, are as bright as the line. They are looked for one
    /// pixel around the place of the line.
    int thickness(const QImage &picture, QPointF middle, bool upright, const QColor &line)
    {
        const qreal scale = picture.devicePixelRatio();
        const QPoint first = (middle * scale).toPoint();
        int count = 0;
        for (int off = -2; off <= 2; ++off) {
            const QPoint pixel = first + (upright ? QPoint(off, 0) : QPoint(0, off));
            count += picture.rect().contains(pixel) && shows(picture, pixel, line) ? 1 : 0;
        }
        return count;
    }

    void expectAllLines(const QImage &picture, const char *when)
    {
        const QColor line = blended(Tokens::cardBackground, Tokens::separator());
        for (const auto *divider : pane().findChildren<SettingsRowDivider *>()) {
            const QRect there = place(*divider);
            if (there.isEmpty())
                continue;
            ++lines;
            EXPECT_EQ(thickness(picture, QPointF(there.center().x(), there.top()), false, line), 1)
                << when << ": the divider at " << there.top();
        }
        for (const auto *group : pane().findChildren<SettingsGroup *>()) {
            const QRect card = place(*cardOf(*group));
            if (card.isEmpty())
                continue;
            ++lines;
            const QRectF edges(card);
            const QPointF middle = edges.center();
            const QColor stroke = strokeColor();
            EXPECT_GE(thickness(picture, {middle.x(), edges.top()}, false, stroke), 1)
                << when << ": top of " << card.top();
            EXPECT_GE(thickness(picture, {middle.x(), edges.bottom()}, false, stroke), 1)
                << when << ": bottom of " << card.top();
            EXPECT_GE(thickness(picture, {edges.left(), middle.y()}, true, stroke), 1)
                << when << ": left of " << card.top();
            EXPECT_GE(thickness(picture, {edges.right(), middle.y()}, true, stroke), 1)
                << when << ": right of " << card.top();
        }
    }

    static QWidget *cardOf(const SettingsGroup &group)
    {
        for (QWidget *child : group.findChildren<QWidget *>(Qt::FindDirectChildrenOnly)) {
            if (!qobject_cast<Label *>(child))
                return child;
        }
        return nullptr;
    }

    int lines = 0;
    OutsideWorld world;
    FakeFonts fonts;
    std::optional<SettingsModel> model;
    std::optional<SettingsRootView> view;
};

TEST_P(Lines, AreThereAtEveryPlaceThatThePageIsScrolledTo)
{
    ASSERT_NE(view->devicePixelRatioF(), 1) << "run with QT_SCALE_FACTOR";
    QScrollBar &bar = *pane().verticalScrollBar();
    for (int value = 0; value <= std::min(bar.maximum(), 60); ++value) {
        bar.setValue(value);
        expectAllLines(painted(), "scrolled");
        if (HasFailure())
            break;
    }
    EXPECT_GT(lines, 0);
}

TEST_P(Lines, AreThereAtEveryHeightOfTheWindow)
{
    for (int height = 641; height < 661; ++height) {
        view->resize(height + 220, height);
        expectAllLines(painted(), "resized");
        if (HasFailure())
            break;
    }
    EXPECT_GT(lines, 0);
}

TEST_P(Lines, SurviveThatOnlyWhatIsBesideThemIsPaintedAnew)
{
    QScrollBar &bar = *pane().verticalScrollBar();
    for (int value = 0; value <= std::min(bar.maximum(), 8); ++value) {
        bar.setValue(value);
        painted();
        for (QWidget *part : pane().findChildren<QWidget *>()) {
            if (qobject_cast<SettingsRowDivider *>(part) || part->childrenRect().height() > 200)
                continue;
            part->update();
            settle();
        }
        expectAllLines(painted(), "painted anew");
        if (HasFailure())
            break;
    }
}

INSTANTIATE_TEST_SUITE_P(Pages, Lines, testing::ValuesIn(allSettingsSections), [](const auto &page) {
    return std::string(qPrintable(rawValue(page.param).remove(u' ').remove(u'&')));
});

} // namespace
