#include "AppDelegate/MainMenu.h"

#include <QAction>
#include <QMainWindow>
#include <QMessageBox>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

TEST(AboutPanel, OpensOnceHoweverOftenItIsChosen)
{
    QMainWindow window;
    buildMainMenu(window);
    window.show();
    for (QAction *item : window.findChildren<QAction *>()) {
        if (item->text() == u"About Vantle Settings") {
            item->trigger();
            item->trigger();
        }
    }
    const auto panels = window.findChildren<QMessageBox *>();
    ASSERT_EQ(panels.size(), 1);
    EXPECT_TRUE(panels.first()->isVisible());
    EXPECT_EQ(panels.first()->text(), u"Vantle Settings"_s);
    EXPECT_EQ(panels.first()->informativeText(), u"Version dev"_s);
}

} // namespace
