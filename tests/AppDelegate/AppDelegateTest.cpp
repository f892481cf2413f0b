#include "AppDelegate/SettingsAppDelegate.h"
#include "FakeFonts.h"
#include "Finding.h"
#include "FontRegistration/FontRegistration.h"
#include "HomeFiles.h"
#include "OutsideWorld.h"
#include "SettingsWindow/SettingsWindowController.h"
#include "SettingsWindow/Sidebar.h"

#include <QMenuBar>
#include <QPointer>
#include <QSemaphore>

#include <gtest/gtest.h>

#include <chrono>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{

class AppDelegate : public testing::Test
{
protected:
    AppDelegate()
    {
        QObject::connect(&delegate, &SettingsAppDelegate::terminate, [this] { ++terminations; });
    }

    int terminations = 0;
    OutsideWorld world;
    FakeFonts fonts;
    SettingsAppDelegate delegate;
};

TEST_F(AppDelegate, HasNoControllerBeforeItHasLaunched)
{
    EXPECT_EQ(delegate.controller(), nullptr);
    EXPECT_TRUE(delegate.applicationShouldHandleReopen(false));
}

TEST_F(AppDelegate, LaunchesWithOneWindowOnTheGeneralPageWithItsMenus)
{
    delegate.applicationDidFinishLaunching();
    ASSERT_TRUE(delegate.controller());
    const SettingsNSWindow &window = delegate.controller()->window();
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.findChild<Sidebar *>()->selection(), SettingsSection::general);
    EXPECT_EQ(window.menuWidget()->actions().size(), 3);
}

TEST_F(AppDelegate, ClosingTheWindowDropsTheControllerAndTerminates)
{
    delegate.applicationDidFinishLaunching();
    const QPointer<SettingsNSWindow> window(&delegate.controller()->window());
    window->close();
    EXPECT_EQ(delegate.controller(), nullptr);
    EXPECT_EQ(terminations, 1);
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    EXPECT_FALSE(window);
    EXPECT_EQ(terminations, 1);
}

TEST_F(AppDelegate, ReopenRestoresAMinimisedWindow)
{
    delegate.applicationDidFinishLaunching();
    delegate.controller()->window().showMinimized();
    settle();
    EXPECT_TRUE(delegate.applicationShouldHandleReopen(false));
    settle();
    EXPECT_FALSE(delegate.controller()->window().isMinimized());
}

TEST_F(AppDelegate, ReopenWithAVisibleWindowChangesNothing)
{
    delegate.applicationDidFinishLaunching();
    delegate.controller()->window().showMinimized();
    settle();
    EXPECT_TRUE(delegate.applicationShouldHandleReopen(true));
    settle();
    EXPECT_TRUE(delegate.controller()->window().isMinimized());
}

/// finish() uses up its whole time limit, as if it waited for an answer that never comes. `total` adds the
/// limits up.
struct SlowFinish final : ServiceManager, LoopbackPost {
    std::chrono::milliseconds total{0};

    void isLoaded(std::chrono::milliseconds, Answer answer) override { answer(false); }
    void load(Answer answer) override { answer(false); }
    void unload(Answer answer) override { answer(false); }
    void post(const QUrl &) override {}
    void finish(std::chrono::milliseconds limit) override
    {
        EXPECT_FALSE(m_answer.tryAcquire(1, int(limit.count())));
        total += limit;
    }

private:
    QSemaphore m_answer;
};

TEST_F(AppDelegate, FinishingTheLastChangesTakesLessThanASecondInAll)
{
    SlowFinish slow;
    const Seam<ServiceManager>::Replacement service(slow);
    const Seam<LoopbackPost>::Replacement post(slow);
    delegate.applicationWillTerminate();
    EXPECT_GT(slow.total, 0ms);
    EXPECT_LT(slow.total, 1s);
}

TEST(AppDelegateStart, TheWindowOpensWithoutAnyFontFile)
{
    FontRegistration::registerFonts({homePath(u"no/such/folder"_s)}, FontRegistry::system());
    const OutsideWorld world;
    SettingsAppDelegate delegate;
    delegate.applicationDidFinishLaunching();
    settle();
    EXPECT_TRUE(delegate.controller()->window().isVisible());
    EXPECT_FALSE(delegate.controller()->window().grab().isNull());
}

} // namespace
