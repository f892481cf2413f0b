#include "FakeFonts.h"
#include "Finding.h"
#include "Model/SettingsModel.h"
#include "OutsideWorld.h"
#include "SettingsWindow/DetailHero.h"
#include "SettingsWindow/SectionPane.h"
#include "SettingsWindow/Sections/SectionContent.h"
#include "SettingsWindow/SettingsRootView.h"
#include "SettingsWindow/Sidebar.h"
#include "ShortcutRecorder/ShortcutSettingsRow.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QStackedWidget>
#include <QTest>

#include <gtest/gtest.h>

#include <memory>

using namespace Qt::StringLiterals;

namespace
{

class RootView : public testing::Test
{
protected:
    RootView()
    {
        view.resize(860, 612);
        view.show();
        settle();
    }

    SectionPane *shownPane()
    {
        return qobject_cast<SectionPane *>(view.findChild<QStackedWidget *>()->currentWidget());
    }
    Sidebar &sidebar() { return *view.findChild<Sidebar *>(); }

    OutsideWorld world;
    FakeFonts fonts;
    SettingsModel model;
    SettingsRootView view{model, 0};
};

TEST_F(RootView, ListsTheFivePagesInOrder)
{
    QStringList titles;
    for (int row = 0; row < sidebar().count(); ++row)
        titles << sidebar().item(row)->text();
    EXPECT_EQ(titles, (QStringList{u"General"_s, u"Planning"_s, u"Browser Patterns"_s, u"Data & Privacy"_s,
                                   u"About"_s}));
    EXPECT_EQ(sidebar().accessibleName(), u"Sections"_s);
}

TEST_F(RootView, StartsWithThePageThatTheModelHasSelected)
{
    EXPECT_EQ(sidebar().selection(), SettingsSection::general);
    EXPECT_EQ(shownPane()->accessibleName(), u"General"_s);
}

TEST_F(RootView, DrawsThePageBeforeItsLowerGroupsAreMade)
{
    SettingsRootView later{model, 0};
    EXPECT_EQ(later.findChild<ShortcutSettingsRow *>(), nullptr);
    later.show();
    EXPECT_TRUE(QTest::qWaitFor([&later] { return later.findChild<ShortcutSettingsRow *>() != nullptr; }));
}

TEST_F(RootView, ChoosingAnEntryChangesTheModelAndThePageAndNothingElse)
{
    world.takeRecord();
    const QRect about = sidebar().visualItemRect(sidebar().item(4));
    QTest::mouseClick(sidebar().viewport(), Qt::LeftButton, {}, about.center());
    EXPECT_EQ(model.section, SettingsSection::about);
    settle();
    EXPECT_EQ(shownPane()->accessibleName(), u"About"_s);
    EXPECT_TRUE(world.takeRecord().empty());
}

TEST_F(RootView, TheSelectedEntryCannotBeDeselected)
{
    const QPoint general = sidebar().visualItemRect(sidebar().item(0)).center();
    QTest::mouseClick(sidebar().viewport(), Qt::LeftButton, Qt::ControlModifier, general);
    EXPECT_EQ(sidebar().selectedItems(), QList{sidebar().item(0)});
    sidebar().setFocus();
    QTest::keyClick(&sidebar(), Qt::Key_Space, Qt::ControlModifier);
    EXPECT_EQ(sidebar().selectedItems(), QList{sidebar().item(0)});
}

TEST_F(RootView, TheSidebarCopiesNothing)
{
    QGuiApplication::clipboard()->setText(u"mine"_s);
    sidebar().setFocus();
    QTest::keyClick(&sidebar(), Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text(), u"mine");
}

TEST_F(RootView, TheArrowKeysMoveThroughTheEntries)
{
    sidebar().setFocus();
    QTest::keyClick(&sidebar(), Qt::Key_End);
    settle();
    EXPECT_EQ(model.section, SettingsSection::about);
    QTest::keyClick(&sidebar(), Qt::Key_Up);
    settle();
    EXPECT_EQ(model.section, SettingsSection::data);
}

TEST_F(RootView, ASectionSetFromCodeMovesTheSidebarAndThePage)
{
    model.section = SettingsSection::about;
    settle();
    EXPECT_EQ(sidebar().selection(), SettingsSection::about);
    EXPECT_EQ(shownPane()->accessibleName(), u"About"_s);
}

TEST_F(RootView, APageIsBuiltWhenItIsFirstShownAndKept)
{
    EXPECT_EQ(view.findChildren<SectionPane *>().size(), 1);
    const SectionPane *general = shownPane();
    model.section = SettingsSection::about;
    settle();
    EXPECT_EQ(view.findChildren<SectionPane *>().size(), 2);
    model.section = SettingsSection::general;
    settle();
    EXPECT_EQ(shownPane(), general);
    EXPECT_EQ(view.findChildren<SectionPane *>().size(), 2);
}

TEST_F(RootView, EveryPageHasItsHeading)
{
    for (const SettingsSection section : allSettingsSections) {
        model.section = section;
        settle();
        SectionPane &pane = *shownPane();
        EXPECT_EQ(pane.accessibleName(), rawValue(section));
        EXPECT_EQ(pane.accessibleDescription(), subtitle(section));
        QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&pane);
        EXPECT_EQ(accessible->role(), QAccessible::Grouping);
        const auto *hero = pane.findChild<DetailHero *>();
        ASSERT_TRUE(hero);
        auto *title = named<QLabel>(*hero, rawValue(section));
        EXPECT_EQ(QAccessible::queryAccessibleInterface(title)->role(), QAccessible::Heading);
    }
}

TEST_F(RootView, ThePageFillsTheWidthBetweenItsPaddings)
{
    const auto *content = shownPane()->content();
    const int left = content->mapTo(shownPane(), QPoint()).x();
    EXPECT_EQ(left, 32);
    EXPECT_EQ(shownPane()->viewport()->width() - left - content->width(), 32);
}

TEST_F(RootView, ThePageEndsWithItsPaddingBelowItsContent)
{
    view.findChild<SectionContent *>()->addDeferredGroups();
    settle();
    const QWidget &page = *shownPane()->widget();
    ASSERT_GT(page.height(), shownPane()->viewport()->height());
    EXPECT_EQ(page.height() - shownPane()->content()->geometry().bottom() - 1, 32);
}

TEST_F(RootView, NothingMakesItWiderThanTheLeastWindow)
{
    for (const SettingsSection section : allSettingsSections) {
        model.section = section;
        settle();
    }
    EXPECT_LE(view.minimumSizeHint().width(), 780);
    EXPECT_LE(view.minimumSizeHint().height(), 500);
    view.resize(780, 500);
    settle();
    EXPECT_EQ(shownPane()->horizontalScrollBar()->maximum(), 0);
}

TEST(DetailHero, ALongSubtitleWrapsWithinItsWidthAndIsShownWhole)
{
    DetailHero hero(SettingsSection::data);
    hero.resize(800, hero.heightForWidth(800));
    hero.show();
    settle();
    const auto *purpose = named<QLabel>(hero, subtitle(SettingsSection::data));
    EXPECT_LE(purpose->width(), 480);
    EXPECT_GE(purpose->height(), purpose->heightForWidth(purpose->width()));
    EXPECT_GT(purpose->height(), 2 * purpose->fontMetrics().height() - 4);
    EXPECT_LE(purpose->geometry().bottom(), hero.height() - 4);
}

/// The opacity, from 0 to 255, of what a heading draws beside its tile, this far out of the shadow's disc.
int shadowBesideTheTile(int distance)
{
    constexpr int tileRadius = 37;
    constexpr int shadowMiddle = 24 + 8 + tileRadius + 4;
    DetailHero hero(SettingsSection::data);
    hero.resize(801, hero.heightForWidth(801));
    QImage picture(hero.size(), QImage::Format_ARGB32_Premultiplied);
    picture.fill(Qt::transparent);
    hero.render(&picture, {}, {}, QWidget::DrawChildren);
    return picture.pixelColor(400 + tileRadius + distance, shadowMiddle).alpha();
}

TEST(DetailHero, ItsTileCastsAShadowOf35HundredthsBlurredBy10)
{
    // The share of a blurred edge that lies beyond one and two of its radii.
    EXPECT_NEAR(shadowBesideTheTile(10), 255 * 0.35 * 0.1587, 1.5);
    EXPECT_NEAR(shadowBesideTheTile(20), 255 * 0.35 * 0.0228, 1);
    EXPECT_EQ(shadowBesideTheTile(30), 0);
}

TEST(SectionPane, ScrollsByThePageKeysThatNoControlNeeds)
{
    auto *content = new SectionContent;
    auto *high = new QWidget;
    high->setFixedHeight(3000);
    content->add(high);
    SectionPane pane(SettingsSection::about, content);
    pane.resize(600, 500);
    pane.show();
    settle();
    EXPECT_TRUE(pane.verticalScrollBar()->isVisible());
    QTest::keyClick(content, Qt::Key_PageDown);
    EXPECT_GT(pane.verticalScrollBar()->value(), 300);
    QTest::keyClick(content, Qt::Key_End);
    EXPECT_EQ(pane.verticalScrollBar()->value(), pane.verticalScrollBar()->maximum());
    QTest::keyClick(content, Qt::Key_Home);
    EXPECT_EQ(pane.verticalScrollBar()->value(), 0);
}

/// A page higher than its pane, with a button on it, and a touch screen.
class TouchedPane : public testing::Test
{
protected:
    TouchedPane()
    {
        auto *high = new QWidget;
        high->setFixedHeight(3000);
        button->setParent(high);
        button->setGeometry(0, 0, 500, 1000);
        auto *content = new SectionContent;
        content->add(high);
        pane = std::make_unique<SectionPane>(SettingsSection::about, content);
        pane->resize(600, 500);
        pane->show();
        settle();
        QObject::connect(button, &QPushButton::clicked, button, [this] { ++clicks; });
        QObject::connect(button, &QPushButton::pressed, button, [this] { ++presses; });
    }

    QTest::QTouchEventWidgetSequence touch() { return QTest::touchEvent(button, screen.get()); }

    /// Maps a point of the pane to the button, which scrolls with the page.
    QPoint onButton(const QPoint &place) const { return button->mapFrom(pane.get(), place); }

    const std::unique_ptr<QPointingDevice> screen{QTest::createTouchDevice()};
    QPushButton *button = new QPushButton;
    std::unique_ptr<SectionPane> pane;
    int presses = 0;
    int clicks = 0;
};

TEST_F(TouchedPane, IsScrolledByAFingerWithoutPressingAnything)
{
    touch().press(0, onButton({200, 400}));
    for (int way = 10; way <= 90; way += 10)
        touch().move(0, onButton({200, 400 - way}));
    EXPECT_TRUE(QTest::qWaitFor([this] { return pane->verticalScrollBar()->value() > 0; }));
    touch().release(0, onButton({200, 310}));
    EXPECT_EQ(presses, 0);
    EXPECT_EQ(clicks, 0);
}

TEST_F(TouchedPane, IsClickedByATap)
{
    touch().press(0, onButton({200, 400}));
    touch().release(0, onButton({200, 400}));
    EXPECT_EQ(clicks, 1);
    EXPECT_EQ(pane->verticalScrollBar()->value(), 0);
}

} // namespace
