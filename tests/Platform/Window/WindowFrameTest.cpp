#include "Platform/Window/WindowFrame.h"

#include "HomeFiles.h"
#include "RecordingFileSystem.h"

#include <QGuiApplication>
#include <QScreen>
#include <QTest>
#include <QWidget>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

const QString file = u".local/state/vantle-settings/window"_s;
const QString name = u"VantleSettingsWindow"_s;

struct FramedWindow : QWidget {
    FramedWindow()
    {
        setMinimumSize(780, 540);
        resize(860, 640);
    }
};

TEST(WindowFrame, IsTheFirstSizeInTheMiddleOfTheScreenAtFirst)
{
    FramedWindow window;
    restoreWindowFrame(window, name);
    EXPECT_EQ(window.size(), QSize(860, 640));
    const QPoint middle = QGuiApplication::primaryScreen()->availableGeometry().center();
    EXPECT_LE((window.frameGeometry().center() - middle).manhattanLength(), 4);
}

TEST(WindowFrame, ComesBackAsItWasLeft)
{
    {
        FramedWindow window;
        restoreWindowFrame(window, name);
        window.setGeometry(60, 40, 790, 560);
        window.show();
        saveWindowFrame(window, name);
    }
    EXPECT_TRUE(homeFile(file).has_value());
    FramedWindow window;
    restoreWindowFrame(window, name);
    window.show();
    EXPECT_EQ(window.geometry(), QRect(60, 40, 790, 560));
}

TEST(WindowFrame, IsWrittenWhenAMoveOrAResizeHasEnded)
{
    FramedWindow window;
    restoreWindowFrame(window, name);
    keepWindowFrame(window, name);
    window.show();
    window.setGeometry(60, 40, 860, 640);
    EXPECT_TRUE(QTest::qWaitFor([] { return homeFile(file).has_value(); }));
    EXPECT_EQ(homeFile(file), "VantleSettingsWindow=860x640+60+40\n");
    window.resize(790, 560);
    EXPECT_TRUE(QTest::qWaitFor([] { return homeFile(file) == "VantleSettingsWindow=790x560+60+40\n"; }));
}

TEST(WindowFrame, IsWrittenOnceForAWholeMove)
{
    FramedWindow window;
    restoreWindowFrame(window, name);
    keepWindowFrame(window, name);
    window.show();
    RecordingFileSystem files;
    for (int step = 1; step <= 50; ++step)
        window.setGeometry(10 + step, 20 + step, 860, 640);
    EXPECT_TRUE(QTest::qWaitFor([] { return homeFile(file).has_value(); }));
    EXPECT_EQ(homeFile(file), "VantleSettingsWindow=860x640+60+70\n");
    EXPECT_EQ(files.notes.filter(u"write "_s).size(), 1);
}

TEST(WindowFrame, IsWrittenWhenTheWindowIsMaximised)
{
    FramedWindow window;
    window.setGeometry(60, 40, 790, 560);
    keepWindowFrame(window, name);
    window.show();
    window.showMaximized();
    EXPECT_TRUE(QTest::qWaitFor([] { return homeFile(file).has_value(); }));
    EXPECT_EQ(homeFile(file), "VantleSettingsWindow=790x560+60+40 maximized\n");
}

TEST(WindowFrame, IsKeptInTheChosenStateDirectory)
{
    qputenv("XDG_STATE_HOME", homePath(u"elsewhere"_s).toUtf8());
    FramedWindow window;
    window.show();
    saveWindowFrame(window, name);
    qunsetenv("XDG_STATE_HOME");
    EXPECT_TRUE(homeFile(u"elsewhere/vantle-settings/window"_s));
    EXPECT_FALSE(homeFile(file));
}

TEST(WindowFrame, ARelativeStateDirectoryIsNone)
{
    qputenv("XDG_STATE_HOME", "state");
    FramedWindow window;
    window.show();
    saveWindowFrame(window, name);
    qunsetenv("XDG_STATE_HOME");
    EXPECT_TRUE(homeFile(file));
}

TEST(WindowFrame, ASmallerSizeThanTheLeastIsRaised)
{
    putHomeFile(file, "VantleSettingsWindow=100x100+10+10\n");
    FramedWindow window;
    restoreWindowFrame(window, name);
    EXPECT_EQ(window.size(), QSize(780, 540));
}

TEST(WindowFrame, ABrokenFileIsAsGoodAsNone)
{
    putHomeFile(file, "VantleSettingsWindow=wide\n");
    FramedWindow window;
    restoreWindowFrame(window, name);
    EXPECT_EQ(window.size(), QSize(860, 640));
}

TEST(WindowFrame, AWindowOverTheWholeScreenComesBackAsItWasBefore)
{
    FramedWindow window;
    window.setGeometry(60, 40, 790, 560);
    window.show();
    window.showFullScreen();
    ASSERT_NE(window.size(), QSize(790, 560));
    saveWindowFrame(window, name);
    EXPECT_EQ(homeFile(file), "VantleSettingsWindow=790x560+60+40\n");
}

TEST(WindowFrame, AMaximisedWindowComesBackMaximisedAndRemembersItsSize)
{
    putHomeFile(file, "VantleSettingsWindow=790x550+5+6 maximized\n");
    FramedWindow window;
    restoreWindowFrame(window, name);
    window.show();
    EXPECT_TRUE(window.isMaximized());
    saveWindowFrame(window, name);
    EXPECT_EQ(homeFile(file), "VantleSettingsWindow=790x550+5+6 maximized\n");
}

} // namespace
