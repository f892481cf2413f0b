#include "Platform/Window/FirstFrame.h"

#include <QPaintEvent>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

#include <optional>

namespace
{

/// A widget that remembers what had happened when it was drawn.
class Window : public QWidget
{
public:
    int done = 0;
    std::optional<int> doneAtFirstFrame;

protected:
    void paintEvent(QPaintEvent *) override
    {
        if (!doneAtFirstFrame)
            doneAtFirstFrame = done;
    }
};

TEST(AfterFirstFrame, DoesTheWorkOnceAndOnlyAfterTheWidgetWasDrawn)
{
    Window window;
    afterFirstFrame(window, [&window] { ++window.done; });
    QCoreApplication::processEvents();
    EXPECT_EQ(window.done, 0);
    window.show();
    ASSERT_TRUE(QTest::qWaitFor([&window] { return window.done > 0; }));
    EXPECT_EQ(window.doneAtFirstFrame, 0);
    window.repaint();
    QCoreApplication::processEvents();
    EXPECT_EQ(window.done, 1);
}

TEST(AfterFirstFrame, DoesNothingForAWidgetThatIsGone)
{
    int done = 0;
    {
        Window window;
        afterFirstFrame(window, [&done] { ++done; });
        window.show();
        window.repaint();
    }
    QCoreApplication::processEvents();
    EXPECT_EQ(done, 0);
}

} // namespace
