#include "Platform/Window/Application.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QDialog>
#include <QKeyEvent>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>
#include <QtTest/qtestspontaneevent.h>

#include <gtest/gtest.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace
{

/// A window with a button and a text field that gets the key events of X11, where a key repeats as a release
/// and a press with the same timestamp.
class HeldKey : public testing::Test
{
protected:
    void SetUp() override
    {
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(button);
        layout->addWidget(field);
        QObject::connect(button, &QPushButton::clicked, &window, [this] { ++clicks; });
        window.show();
        window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
    }

    /// Delivers a key event to the window as the toolkit does. True when it was accepted.
    bool deliver(QEvent::Type type, Qt::Key key, const QString &text = {}) const
    {
        QKeyEvent event(type, key, Qt::NoModifier, 8 + quint32(key), quint32(key), 0, text);
        event.setTimestamp(time);
        event.setAccepted(type != QEvent::ShortcutOverride);
        QSpontaneKeyEvent::setSpontaneous(&event);
        QCoreApplication::instance()->notify(window.windowHandle(), &event);
        return event.isAccepted();
    }

    void press(Qt::Key key, const QString &text = {})
    {
        ++time;
        deliver(QEvent::KeyPress, key, text);
    }

    void release(Qt::Key key)
    {
        ++time;
        deliver(QEvent::KeyRelease, key);
    }

    void repeat(Qt::Key key, const QString &text = {})
    {
        release(key);
        deliver(QEvent::KeyPress, key, text);
    }

    QWidget window;
    QPushButton *button = new QPushButton(u"Clear…"_s);
    QPlainTextEdit *field = new QPlainTextEdit;
    quint64 time = 1000;
    int clicks = 0;
};

/// Records for every press whether it was marked as a repeat.
class Presses : public QObject
{
public:
    bool eventFilter(QObject *, QEvent *event) override
    {
        if (event->type() == QEvent::KeyPress) {
            repeats.push_back(static_cast<QKeyEvent *>(event)->isAutoRepeat());
            spontaneous &= event->spontaneous();
        }
        return false;
    }

    std::vector<bool> repeats;
    bool spontaneous = true;
};

TEST_F(HeldKey, IsMarkedAsARepeatBeforeItsReceiverSeesIt)
{
    Presses presses;
    field->installEventFilter(&presses);
    field->setFocus();
    press(Qt::Key_A);
    repeat(Qt::Key_A);
    repeat(Qt::Key_A);
    release(Qt::Key_A);
    press(Qt::Key_A);
    EXPECT_EQ(presses.repeats, (std::vector{false, true, true, false}));
    EXPECT_TRUE(presses.spontaneous) << "the toolkit reports only spontaneous events to a screen reader";
}

TEST_F(HeldKey, ClicksAButtonOnce)
{
    button->setFocus();
    press(Qt::Key_Space);
    for (int i = 0; i < 5; ++i)
        repeat(Qt::Key_Space);
    release(Qt::Key_Space);
    EXPECT_EQ(clicks, 1);
    press(Qt::Key_Space);
    release(Qt::Key_Space);
    EXPECT_EQ(clicks, 2);
}

TEST_F(HeldKey, NeitherClicksNorCancelsWhereItWasNotPressed)
{
    QDialog dialog;
    QPushButton inside(&dialog);
    inside.setDefault(true);
    int answers = 0;
    QObject::connect(&inside, &QPushButton::clicked, &dialog, [&] { ++answers; });
    QObject::connect(&dialog, &QDialog::rejected, &dialog, [&] { ++answers; });
    dialog.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&dialog));
    const auto deliverTo = [&](const QWidget &widget, QEvent::Type type, Qt::Key key) {
        QKeyEvent event(type, key, Qt::NoModifier, 8 + quint32(key), quint32(key), 0);
        event.setTimestamp(time);
        QSpontaneKeyEvent::setSpontaneous(&event);
        QCoreApplication::instance()->notify(widget.windowHandle(), &event);
    };
    for (const Qt::Key key : {Qt::Key_Space, Qt::Key_Return, Qt::Key_Enter, Qt::Key_Escape}) {
        ++time;
        for (const QEvent::Type type : {QEvent::KeyRelease, QEvent::KeyPress, QEvent::KeyRelease})
            deliverTo(dialog, type, key);
        EXPECT_EQ(answers, 0) << key;
    }
    ++time;
    deliverTo(dialog, QEvent::KeyPress, Qt::Key_Return);
    EXPECT_EQ(answers, 1);
}

TEST_F(HeldKey, IsTypedIntoATextFieldAgainAndAgain)
{
    field->setFocus();
    press(Qt::Key_Space, u" "_s);
    repeat(Qt::Key_Space, u" "_s);
    repeat(Qt::Key_Space, u" "_s);
    EXPECT_EQ(field->toPlainText(), u"   "_s);
    press(Qt::Key_Return);
    repeat(Qt::Key_Return);
    EXPECT_EQ(field->document()->blockCount(), 3);
}

TEST_F(HeldKey, IsAShortcutOnce)
{
    button->setFocus();
    EXPECT_FALSE(deliver(QEvent::ShortcutOverride, Qt::Key_W)) << "a first press may be a shortcut";
    press(Qt::Key_W);
    release(Qt::Key_W);
    EXPECT_TRUE(deliver(QEvent::ShortcutOverride, Qt::Key_W)) << "a repeat is an ordinary key";
}

TEST_F(HeldKey, IsAShortcutOnceWhereTheToolkitMarksRepeats)
{
    QKeyEvent override(QEvent::ShortcutOverride, Qt::Key_W, Qt::ControlModifier, {}, true);
    override.ignore();
    QCoreApplication::sendEvent(window.windowHandle(), &override);
    EXPECT_TRUE(override.isAccepted());
}

TEST_F(HeldKey, ChoosesNoMenuItem)
{
    QMenu menu(&window);
    int chosen = 0;
    QObject::connect(menu.addAction(u"Reveal"_s), &QAction::triggered, &menu, [&] { ++chosen; });
    menu.popup(window.mapToGlobal(QPoint()));
    press(Qt::Key_Down);
    repeat(Qt::Key_Return);
    EXPECT_EQ(chosen, 0);
    EXPECT_TRUE(menu.isVisible());
    press(Qt::Key_Return);
    EXPECT_EQ(chosen, 1);
}

TEST_F(HeldKey, MovesThroughAPickersEntries)
{
    auto *picker = new QComboBox(&window);
    picker->addItems({u"1"_s, u"2"_s, u"3"_s, u"4"_s});
    picker->show();
    picker->setFocus();
    picker->showPopup();
    press(Qt::Key_Down);
    repeat(Qt::Key_Down);
    repeat(Qt::Key_Down);
    EXPECT_EQ(picker->view()->currentIndex().row(), 3);
}

TEST_F(HeldKey, ChoosesNoPickersEntry)
{
    auto *picker = new QComboBox(&window);
    picker->addItems({u"1"_s, u"2"_s});
    picker->show();
    picker->setFocus();
    picker->showPopup();
    press(Qt::Key_Down);
    release(Qt::Key_Return);
    deliver(QEvent::ShortcutOverride, Qt::Key_Return); // the toolkit's pop-up chooses on this event
    deliver(QEvent::KeyPress, Qt::Key_Return);
    EXPECT_TRUE(picker->view()->isVisible());
    EXPECT_EQ(picker->currentIndex(), 0);
    release(Qt::Key_Return);
    ++time;
    deliver(QEvent::ShortcutOverride, Qt::Key_Return);
    EXPECT_FALSE(picker->view()->isVisible());
    EXPECT_EQ(picker->currentIndex(), 1);
}

TEST_F(HeldKey, IsNotDetectedWithoutATimestamp)
{
    field->setFocus();
    Presses presses;
    field->installEventFilter(&presses);
    time = 0;
    for (const QEvent::Type type : {QEvent::KeyPress, QEvent::KeyRelease, QEvent::KeyPress})
        deliver(type, Qt::Key_A);
    EXPECT_EQ(presses.repeats, (std::vector{false, false}));
}

TEST_F(HeldKey, AnotherKeyWithTheSameTimestampIsNoRepeat)
{
    field->setFocus();
    Presses presses;
    field->installEventFilter(&presses);
    press(Qt::Key_A);
    release(Qt::Key_A);
    deliver(QEvent::KeyPress, Qt::Key_B);
    EXPECT_EQ(presses.repeats, (std::vector{false, false}));
}

} // namespace
