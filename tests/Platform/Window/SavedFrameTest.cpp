#include "Platform/Window/detail/SavedFrame.h"

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

const QString name = u"VantleSettingsWindow"_s;
const QRect laptop(0, 0, 1440, 900);
const QRect monitor(1440, 0, 1920, 1080);

TEST(SavedFrame, IsOneLineUnderItsName)
{
    EXPECT_EQ((SavedFrame{.size = {860, 640}, .origin = QPoint(210, -5)}.line(name)),
              "VantleSettingsWindow=860x640+210+-5\n");
    EXPECT_EQ((SavedFrame{.size = {860, 640}}.line(name)), "VantleSettingsWindow=860x640\n");
    EXPECT_EQ((SavedFrame{.size = {860, 640}, .maximized = true}.line(name)),
              "VantleSettingsWindow=860x640 maximized\n");
}

TEST(SavedFrame, IsFoundAgainAsItWas)
{
    for (const SavedFrame &frame :
         {SavedFrame{.size = {860, 640}}, SavedFrame{.size = {900, 700}, .origin = QPoint(-40, 12)},
          SavedFrame{.size = {780, 540}, .origin = QPoint(), .maximized = true}})
        EXPECT_EQ(SavedFrame::find(frame.line(name), name), frame);
}

TEST(SavedFrame, IsFoundAmongOthers)
{
    EXPECT_EQ(SavedFrame::find("Other=1x2+3+4\nVantleSettingsWindow=800x600+5+6\n", name),
              (SavedFrame{.size = {800, 600}, .origin = QPoint(5, 6)}));
}

TEST(SavedFrame, IsFoundWithoutTheLastLineBreak)
{
    EXPECT_EQ(SavedFrame::find("VantleSettingsWindow=800x600 maximized", name),
              (SavedFrame{.size = {800, 600}, .maximized = true}));
}

TEST(SavedFrame, IsNoneInAnythingElse)
{
    for (const QByteArray &bytes :
         {QByteArray(), QByteArray("VantleSettingsWindow="), QByteArray("VantleSettingsWindow=800"),
          QByteArray("VantleSettingsWindow=-800x600"), QByteArray("VantleSettingsWindow=800x600+1"),
          QByteArray("VantleSettingsWindow=99999999999x600"), QByteArray("VantleSettingsWindow=0x0"),
          QByteArray("VantleSettingsWindow=2000000000x600"),
          QByteArray("VantleSettingsWindow=800x600+2147483647+1"),
          QByteArray("VantleSettingsWindow=800x600x1"), QByteArray("VantleSettingsWindow=800x600+1+2+3"),
          QByteArray("VantleSettingsWindow= 800x600"),
          QByteArray("VantleSettingsWindow=800x600+1+2 maximized "),
          QByteArray("VantleSettingsWindow=+800x600"), QByteArray("VantleSettingsWindow=800x600+1+2 tiny"),
          QByteArray("vantlesettingswindow=800x600"), QByteArray("\0\xff\xfe=800x600", 11)})
        EXPECT_FALSE(SavedFrame::find(bytes, name)) << bytes.toStdString();
}

TEST(SavedFrame, GoesWhereItWas)
{
    const SavedFrame frame{.size = {860, 640}, .origin = QPoint(100, 50)};
    EXPECT_EQ(frame.placed({laptop}), QRect(100, 50, 860, 640));
}

TEST(SavedFrame, GoesToTheMiddleTheFirstTime)
{
    EXPECT_EQ(SavedFrame{.size = QSize(860, 640)}.placed({laptop, monitor}).center(), laptop.center());
}

TEST(SavedFrame, GoesBackToAnotherMonitor)
{
    const SavedFrame frame{.size = {860, 640}, .origin = QPoint(1500, 50)};
    EXPECT_EQ(frame.placed({laptop, monitor}), QRect(1500, 50, 860, 640));
}

TEST(SavedFrame, GoesToTheMiddleWhenItsMonitorIsGone)
{
    const SavedFrame frame{.size = {860, 640}, .origin = QPoint(1500, 50)};
    EXPECT_EQ(frame.placed({laptop}).center(), laptop.center());
    EXPECT_EQ(frame.placed({laptop}).size(), QSize(860, 640));
}

TEST(SavedFrame, IsBroughtBackWhenOnlyASliverOfItsTopWouldShow)
{
    const SavedFrame toTheRight{.size = {860, 640}, .origin = QPoint(1400, 50)};
    EXPECT_EQ(toTheRight.placed({laptop}).center(), laptop.center());
    const SavedFrame aboveTheTop{.size = {860, 640}, .origin = QPoint(100, -30)};
    EXPECT_EQ(aboveTheTop.placed({laptop}).center(), laptop.center());
}

TEST(SavedFrame, MayHangOverAnEdgeWhileItCanBeTakenHoldOf)
{
    const SavedFrame frame{.size = {860, 640}, .origin = QPoint(1200, 500)};
    EXPECT_EQ(frame.placed({laptop}), QRect(1200, 500, 860, 640));
}

TEST(SavedFrame, IsNeverLargerThanItsScreen)
{
    const SavedFrame frame{.size = {3000, 2000}, .origin = QPoint(0, 0)};
    EXPECT_EQ(frame.placed({laptop}).size(), laptop.size());
    const SavedFrame gone{.size = {1900, 1000}, .origin = QPoint(1500, 0)};
    EXPECT_EQ(gone.placed({laptop}), laptop);
}

TEST(SavedFrame, StaysAsItIsWithoutAnyScreen)
{
    EXPECT_EQ((SavedFrame{.size = {860, 640}, .origin = QPoint(7, 8)}.placed({})), QRect(7, 8, 860, 640));
}

} // namespace
