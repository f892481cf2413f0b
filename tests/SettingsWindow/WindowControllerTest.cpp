#include "Components/SettingsGroup.h"
#include "Components/SettingsRow.h"
#include "FakeFonts.h"
#include "Finding.h"
#include "Model/SettingsModel.h"
#include "OutsideWorld.h"
#include "SettingsWindow/SettingsWindowController.h"
#include "SettingsWindow/Sidebar.h"
#include "ShortcutRecorder/ShortcutSettingsRow.h"

#include <QAccessible>
#include <QApplication>
#include <QMouseEvent>
#include <QPointingDevice>
#include <QTest>

#include <gtest/gtest.h>

#include <algorithm>
#include <memory>

using namespace Qt::StringLiterals;

namespace
{

class WindowController : public testing::Test
{
protected:
    WindowController()
    {
        controller.onWindowClose = [this] { ++closed; };
        controller.showWindow();
        settle();
    }

    int closed = 0;
    OutsideWorld world;
    FakeFonts fonts;
    SettingsModel model;
    SettingsWindowController controller{SettingsSection::general, model};
    SettingsNSWindow &window = controller.window();
};

TEST_F(WindowController, StartsAtItsFirstSizeAndNeverGetsSmallerThanTheLeast)
{
    EXPECT_EQ(window.size(), QSize(860, 640));
    EXPECT_EQ(window.minimumSize(), QSize(780, 540));
    window.resize(100, 100);
    EXPECT_EQ(window.size(), QSize(780, 540));
}

/// Counts how often a group is drawn in less room than it needs.
class CrampedGroups : public QObject
{
public:
    CrampedGroups() { qApp->installEventFilter(this); }

    int count = 0;

    bool eventFilter(QObject *object, QEvent *event) override
    {
        const auto *group = qobject_cast<SettingsGroup *>(object);
        if (group && event->type() == QEvent::Paint &&
            group->height() < group->heightForWidth(group->width()))
            ++count;
        return false;
    }
};

TEST(SettingsWindow, NeverDrawsAPageHalfLaidOut)
{
    const OutsideWorld world;
    const FakeFonts fonts;
    SettingsModel model;
    const CrampedGroups cramped;
    SettingsWindowController controller(SettingsSection::general, model);
    const SettingsNSWindow &window = controller.window();
    controller.showWindow();
    ASSERT_TRUE(QTest::qWaitFor([&window] { return window.findChild<ShortcutSettingsRow *>() != nullptr; }));
    settle();
    EXPECT_EQ(cramped.count, 0);

    std::vector<QWidget *> rows(20);
    std::ranges::generate(rows, [] {
        return new SettingsRow(
            {.icon = u"power"_s, .tint = SystemColor::green, .title = u"Row"_s, .subtitle = u"of twenty"_s});
    });
    window.findChild<SettingsGroup *>()->setRows(rows);
    settle();
    EXPECT_EQ(cramped.count, 0);
}

TEST_F(WindowController, IsExposedAsAWindowWithOneConstantName)
{
    model.section = SettingsSection::about;
    settle();
    EXPECT_EQ(window.windowTitle(), u"Vantle Settings"_s);
    const QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&window);
    EXPECT_EQ(accessible->role(), QAccessible::Window);
    EXPECT_EQ(accessible->text(QAccessible::Name), u"Vantle Settings"_s);
}

TEST_F(WindowController, IsBlackBehindItsContentOnLightDesktopsToo)
{
    const QImage picture = window.grab().toImage();
    EXPECT_EQ(picture.pixelColor(220, window.height() - 3), QColor(Qt::black));
    EXPECT_EQ(picture.pixelColor(3, window.height() - 3), QColor(0x16, 0x16, 0x18));
}

TEST_F(WindowController, TellsExactlyOnceThatItCloses)
{
    window.close();
    EXPECT_EQ(closed, 1);
    EXPECT_FALSE(window.isVisible());
    window.close();
    EXPECT_EQ(closed, 1);
}

TEST_F(WindowController, ClosesQuietlyWhenNobodyListens)
{
    controller.onWindowClose = nullptr;
    window.close();
    EXPECT_FALSE(window.isVisible());
}

TEST_F(WindowController, SavesItsFrameWhenItCloses)
{
    window.setGeometry(30, 20, 785, 545);
    window.close();
    const auto saved = world.file(u".local/state/vantle-settings/window"_s);
    ASSERT_TRUE(saved);
    EXPECT_TRUE(saved->startsWith("VantleSettingsWindow=785x545+")) << saved->toStdString();
}

TEST_F(WindowController, ComesBackFromBeingMinimised)
{
    window.showMinimized();
    settle();
    EXPECT_FALSE(controller.isVisible());
    controller.showWindow();
    settle();
    EXPECT_TRUE(controller.isVisible());
}

TEST_F(WindowController, ShownAgainItComesBeforeOtherWindowsAndGetsTheKeys)
{
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    controller.showWindow();
    EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
}

TEST_F(WindowController, GivesTheKeysToTheSidebarAtFirst)
{
    EXPECT_EQ(window.focusWidget(), window.findChild<Sidebar *>());
}

/// A window that counts how often it starts a move by the window system.
class DraggedWindow : public SettingsNSWindow
{
public:
    DraggedWindow()
    {
        resize(300, 300);
        show();
    }

    void drag(Qt::MouseEventSource source, const QPointingDevice &device)
    {
        const QPointF start(100, 100);
        const QPointF end = start + QPointF(QApplication::startDragDistance(), 0);
        send(QEvent::MouseButtonPress, start, Qt::LeftButton, source, device);
        send(QEvent::MouseMove, end, Qt::NoButton, source, device);
        send(QEvent::MouseButtonRelease, end, Qt::LeftButton, source, device);
    }

    int moves = 0;

protected:
    void startMove() override { ++moves; }

private:
    void send(QEvent::Type type, const QPointF &place, Qt::MouseButton button, Qt::MouseEventSource source,
              const QPointingDevice &device)
    {
        const Qt::MouseButtons held = type == QEvent::MouseButtonRelease ? Qt::NoButton : Qt::LeftButton;
        QMouseEvent event(type, place, place, mapToGlobal(place), button, held, Qt::NoModifier, source,
                          &device);
        QCoreApplication::sendEvent(this, &event);
    }
};

TEST(SettingsWindow, IsMovedByDraggingWithAMouse)
{
    DraggedWindow window;
    const QPointingDevice &mouse = *QPointingDevice::primaryPointingDevice();
    window.drag(Qt::MouseEventNotSynthesized, mouse);
    EXPECT_EQ(window.moves, 1);
}

TEST(SettingsWindow, IsNotMovedByAMouseThatIsMadeOfAFingerOrAPen)
{
    DraggedWindow window;
    const QPointingDevice &mouse = *QPointingDevice::primaryPointingDevice();
    const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    const std::unique_ptr<QPointingDevice> pen(
        QTest::createTouchDevice(QInputDevice::DeviceType::Stylus, QInputDevice::Capability::Position));
    window.drag(Qt::MouseEventSynthesizedBySystem, mouse);
    window.drag(Qt::MouseEventSynthesizedByQt, mouse);
    window.drag(Qt::MouseEventNotSynthesized, *screen);
    window.drag(Qt::MouseEventNotSynthesized, *pen);
    EXPECT_EQ(window.moves, 0);
}

TEST(SettingsWindow, IsNotMovedByAFinger)
{
    DraggedWindow window;
    const std::unique_ptr<QPointingDevice> screen(QTest::createTouchDevice());
    const QPoint start(100, 100);
    QTest::touchEvent(window.windowHandle(), screen.get()).press(0, start);
    QTest::touchEvent(window.windowHandle(), screen.get()).move(0, start + QPoint(50, 0));
    QTest::touchEvent(window.windowHandle(), screen.get()).release(0, start + QPoint(50, 0));
    EXPECT_EQ(window.moves, 0);
}

TEST(WindowControllerStart, OpensWithTheFrameThatItWasClosedWith)
{
    const OutsideWorld world;
    const FakeFonts fonts;
    SettingsModel model;
    const QRect frame(30, 20, 790, 550);
    {
        const SettingsWindowController controller(SettingsSection::general, model);
        controller.window().setGeometry(frame);
        controller.window().show();
        controller.window().close();
    }
    const SettingsWindowController controller(SettingsSection::general, model);
    EXPECT_EQ(controller.window().geometry(), frame);
}

TEST(WindowControllerStart, SelectsItsInitialSection)
{
    OutsideWorld world;
    FakeFonts fonts;
    SettingsModel model;
    int announced = 0;
    QObject::connect(&model, &Observable::objectWillChange, [&] { ++announced; });
    const SettingsWindowController controller(SettingsSection::about, model);
    EXPECT_EQ(model.section, SettingsSection::about);
    EXPECT_EQ(announced, 1);
}

} // namespace
