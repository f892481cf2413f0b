#include "Platform/Window/WindowChrome.h"

#include <QWidget>

#include <gtest/gtest.h>

namespace
{

class WindowChrome : public testing::Test
{
protected:
    void SetUp() override { qunsetenv(variable); }
    void TearDown() override { qunsetenv(variable); }

    static constexpr const char *variable = "QT_WAYLAND_DECORATION";
    QWidget window;
};

TEST_F(WindowChrome, FramesOfTheToolkitAreThoseInTheProgramsColors)
{
    prepareWindow(window);
    EXPECT_EQ(qgetenv(variable), "bradient");
}

TEST_F(WindowChrome, OtherFramesCanBeChosenByTheUser)
{
    qputenv(variable, "adwaita");
    prepareWindow(window);
    EXPECT_EQ(qgetenv(variable), "adwaita");
}

} // namespace
