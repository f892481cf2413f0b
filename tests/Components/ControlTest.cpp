#include "Components/Buttons.h"
#include "Components/Picker.h"
#include "Components/SessionCountBadge.h"
#include "Components/Style/FocusRing.h"
#include "Components/Switch.h"
#include "LookTest.h"

#include <QFocusFrame>
#include <QListWidget>
#include <QMenu>
#include <QPlainTextEdit>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <QWheelEvent>

#include <memory>

using namespace Qt::StringLiterals;

namespace
{

class ControlTest : public LookTest
{
protected:
    static bool turnWheel(QWidget &widget)
    {
        QWheelEvent event(QPointF(5, 5), widget.mapToGlobal(QPointF(5, 5)), QPoint(), QPoint(0, -120),
                          Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&widget, &event);
        return event.isAccepted();
    }
};

TEST_F(ControlTest, AClickOnASwitchAsksAndShowsThePresentStateUntilItIsAnswered)
{
    Switch control;
    const QSignalSpy asked(&control, &Switch::requested);
    show(control, control.sizeHint());
    QTest::mouseClick(&control, Qt::LeftButton);
    ASSERT_EQ(asked.size(), 1);
    EXPECT_TRUE(asked[0][0].toBool());
    EXPECT_FALSE(control.isChecked());
    QTest::mouseClick(&control, Qt::LeftButton);
    ASSERT_EQ(asked.size(), 2);
    EXPECT_TRUE(asked[1][0].toBool()) << "still off, so a click still requests on";
    control.setChecked(true);
    EXPECT_TRUE(control.isChecked());
    EXPECT_EQ(asked.size(), 2) << "an answer is no request";
    QTest::keyClick(&control, Qt::Key_Space);
    ASSERT_EQ(asked.size(), 3);
    EXPECT_FALSE(asked[2][0].toBool());
    EXPECT_TRUE(control.isChecked());
}

TEST_F(ControlTest, TheKnobOfASwitchThatIsRefusedGoesThereAndBack)
{
    Switch control;
    show(control, control.sizeHint());
    const QImage off = control.grab().toImage();
    QTest::mouseClick(&control, Qt::LeftButton);
    EXPECT_TRUE(QTest::qWaitFor([&] { return control.grab().toImage() != off; })) << "the knob never moved";
    EXPECT_TRUE(QTest::qWaitFor([&] { return control.grab().toImage() == off; }))
        << "the knob does not return";
    EXPECT_FALSE(control.isChecked());
}

TEST_F(ControlTest, APendingSwitchAsksNothingAndKeepsTheFocus)
{
    Switch control;
    const QSignalSpy asked(&control, &Switch::requested);
    show(control, control.sizeHint());
    control.setFocus();
    control.setPending(true);
    EXPECT_EQ(control.window()->focusWidget(), &control);
    QAccessibleInterface *exposed = QAccessible::queryAccessibleInterface(&control);
    EXPECT_TRUE(exposed->state().busy);
    EXPECT_TRUE(exposed->state().disabled);
    EXPECT_TRUE(exposed->state().focusable);
    EXPECT_FALSE(exposed->state().checked);
    QTest::mouseClick(&control, Qt::LeftButton);
    QTest::keyClick(&control, Qt::Key_Space);
    exposed->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(asked.size(), 0);
    control.setPending(false);
    EXPECT_FALSE(exposed->state().busy);
    EXPECT_FALSE(exposed->state().disabled);
    QTest::keyClick(&control, Qt::Key_Space);
    EXPECT_EQ(asked.size(), 1);
}

TEST_F(ControlTest, TheKnobOfAPendingSwitchWaitsAtTheRequestedEnd)
{
    Switch off;
    Switch on;
    on.setChecked(true);
    show(on, on.sizeHint());
    show(off, off.sizeHint());
    const QImage before = off.grab().toImage();
    const auto edge = [](Switch &control) { return control.grab().toImage().pixel(4, 3); }; // of the track
    const QRgb accent = edge(on);
    off.setPending(true);
    EXPECT_TRUE(QTest::qWaitFor([&] { return edge(off) == accent; })) << "the knob never moved";
    const QImage there = off.grab().toImage();
    EXPECT_TRUE(QTest::qWaitFor([&] { return off.grab().toImage() != there; })) << "no arc turns on the knob";
    off.setPending(false);
    EXPECT_TRUE(QTest::qWaitFor([&] { return off.grab().toImage() == before; }))
        << "the knob does not return";
}

TEST_F(ControlTest, ASwitchIsExposedAsACheckBoxWhoseToggleActsLikeAClick)
{
    Switch control;
    control.setAccessibleName(u"Launch at Login"_s);
    const QSignalSpy asked(&control, &Switch::requested);
    EXPECT_EQ(outline(control), QStringList{u"CheckBox Launch at Login"_s});
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&control);
    EXPECT_TRUE(accessible->state().checkable);
    EXPECT_TRUE(accessible->state().focusable);
    EXPECT_FALSE(accessible->state().checked);
    ASSERT_NE(accessible->actionInterface(), nullptr);
    EXPECT_EQ(accessible->actionInterface()->actionNames().first(),
              QAccessibleActionInterface::toggleAction());
    accessible->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    ASSERT_EQ(asked.size(), 1);
    EXPECT_TRUE(asked[0][0].toBool());
    EXPECT_FALSE(control.isChecked());
    control.setChecked(true);
    EXPECT_TRUE(accessible->state().checked);
}

TEST_F(ControlTest, ADisabledSwitchAsksNothing)
{
    Switch control;
    control.setEnabled(false);
    const QSignalSpy asked(&control, &Switch::requested);
    show(control, control.sizeHint());
    QTest::mouseClick(&control, Qt::LeftButton);
    QAccessibleInterface *accessible = QAccessible::queryAccessibleInterface(&control);
    accessible->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
    EXPECT_EQ(asked.size(), 0);
}

TEST_F(ControlTest, ASwitchIs26By15)
{
    EXPECT_EQ(Switch().sizeHint(), QSize(26, 15));
}

TEST_F(ControlTest, TheWheelNeverChangesAPickerAndScrollsThePageInstead)
{
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    auto *other = new PushButton(u"Other"_s);
    auto *picker = new Picker;
    picker->setEntries({u"One"_s, u"Two"_s, u"Three"_s});
    picker->setCurrentIndex(0);
    layout->addWidget(other);
    layout->addWidget(picker);
    const QSignalSpy activated(picker, &Picker::activated);
    show(window, {200, 100});
    other->setFocus();
    EXPECT_FALSE(turnWheel(*picker));
    EXPECT_EQ(picker->currentIndex(), 0);
    EXPECT_EQ(activated.size(), 0);
    EXPECT_FALSE(picker->hasFocus()) << "the wheel does not bring the focus either";
    picker->setFocus();
    EXPECT_FALSE(turnWheel(*picker));
    EXPECT_EQ(picker->currentIndex(), 0);
    EXPECT_EQ(activated.size(), 0);
}

TEST_F(ControlTest, NewEntriesOfAPickerKeepItsChoiceAndSendNothing)
{
    Picker picker;
    const QSignalSpy activated(&picker, &Picker::activated);
    const QSignalSpy changed(&picker, &Picker::currentIndexChanged);
    picker.setEntries({u"System"_s, u"JetBrains Mono"_s});
    picker.setCurrentIndex(1);
    const auto changes = changed.size();
    picker.setEntries({u"System"_s, u"JetBrains Mono — not installed"_s});
    EXPECT_EQ(picker.currentIndex(), 1);
    EXPECT_EQ(picker.currentText(), u"JetBrains Mono — not installed"_s);
    picker.setEntries({u"System"_s});
    EXPECT_EQ(picker.currentIndex(), -1);
    EXPECT_EQ(changed.size(), changes);
    EXPECT_EQ(activated.size(), 0);
}

TEST_F(ControlTest, APickerIsAsWideAsItsLongestEntryBut200AtMost)
{
    Picker picker;
    picker.setEntries({u"System (SF Pro)"_s});
    const int text = picker.fontMetrics().horizontalAdvance(u"System (SF Pro)"_s);
    EXPECT_GT(picker.sizeHint().width(), text + 30);
    EXPECT_EQ(picker.sizeHint().height(), 22);
    picker.setEntries({QString(100, u'W')});
    EXPECT_EQ(picker.maximumWidth(), 200);
}

TEST_F(ControlTest, PushButtonsHaveTwoHeightsAndShowAmpersands)
{
    const PushButton small(u"Clear"_s);
    EXPECT_EQ(small.sizeHint().height(), 22);
    EXPECT_EQ(small.sizeHint().width(),
              small.fontMetrics().size(Qt::TextSingleLine, u"Clear"_s).width() + 20);
    PushButton large(u"Save & Close"_s, PushButton::Size::large);
    EXPECT_EQ(large.sizeHint().height(), 30);
    EXPECT_EQ(outline(large), QStringList{u"Button Save & Close"_s});
}

TEST_F(ControlTest, IconAndLinkButtonsHaveAccessibleNames)
{
    IconButton icon({u"doc.on.doc"_s, 11}, u"Copy path"_s);
    EXPECT_EQ(icon.size(), QSize(22, 22));
    EXPECT_EQ(outline(icon), QStringList{u"Button Copy path"_s});
    LinkButton link(u"Reset all shortcuts"_s);
    EXPECT_EQ(outline(link), QStringList{u"Button Reset all shortcuts"_s});
}

TEST_F(ControlTest, ASymbolIsOfRegularWeightUnlessItIsGivenAnother)
{
    EXPECT_EQ(IconButton({u"doc.on.doc"_s, 11}, {}).symbol().weight, QFont::Normal);
    EXPECT_EQ(IconButton({u"doc.on.doc"_s, 11, QFont::Medium}, {}).symbol().weight, QFont::Medium);
}

TEST_F(ControlTest, NoControlAsksTheSystemForAFocusRingBesideOurs)
{
    PushButton button(u"Clear"_s);
    Picker picker;
    QPlainTextEdit editor;
    QListWidget list;
    for (QWidget *control : {static_cast<QWidget *>(&button), static_cast<QWidget *>(&picker),
                             static_cast<QWidget *>(&editor), static_cast<QWidget *>(&list)}) {
        control->ensurePolished();
        EXPECT_FALSE(control->testAttribute(Qt::WA_MacShowFocusRect)) << control->metaObject()->className();
    }
}

TEST_F(ControlTest, ABadgeSaysHowManySessionsInTheSingularForOneOnly)
{
    SessionCountBadge badge(1);
    EXPECT_EQ(badge.toolTip(), u"1 notch session with a cwd under this project"_s);
    badge.setCount(2);
    EXPECT_EQ(badge.toolTip(), u"2 notch sessions with a cwd under this project"_s);
    EXPECT_EQ(outline(badge), QStringList{u"StaticText 2 notch sessions with a cwd under this project"_s});
    badge.setCount(1234567);
    EXPECT_EQ(badge.toolTip(), u"1234567 notch sessions with a cwd under this project"_s) << "no grouping";
    badge.setCount(-1);
    EXPECT_EQ(badge.toolTip(), u"-1 notch sessions with a cwd under this project"_s);
}

TEST_F(ControlTest, ABadgeOfNoneIsADashWithoutATooltip)
{
    SessionCountBadge badge(0);
    EXPECT_EQ(badge.toolTip(), QString());
    EXPECT_EQ(badge.sizeHint().width(), 28);
    EXPECT_EQ(outline(badge), QStringList{u"StaticText No notch sessions"_s});
}

TEST_F(ControlTest, TheRingIsAroundAControlThatTheKeyboardReachedAndNotOneThatWasClicked)
{
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    auto *first = new PushButton(u"First"_s);
    auto *second = new PushButton(u"Second"_s);
    layout->addWidget(first);
    layout->addWidget(second);
    show(window, {200, 120});
    const auto ringedWidget = [&window]() -> QWidget * {
        const auto *frame = window.findChild<QFocusFrame *>();
        return frame ? frame->widget() : nullptr;
    };
    const auto sendFocusIn = [](QWidget *control, Qt::FocusReason reason) {
        QFocusEvent event(QEvent::FocusIn, reason);
        QCoreApplication::sendEvent(control, &event);
    };
    sendFocusIn(first, Qt::TabFocusReason);
    EXPECT_EQ(ringedWidget(), nullptr) << "a window that becomes active gives the same reason";
    QTest::mousePress(second, Qt::LeftButton);
    sendFocusIn(second, Qt::MouseFocusReason);
    EXPECT_EQ(ringedWidget(), nullptr);
    QTest::keyPress(second, Qt::Key_Tab);
    sendFocusIn(first, Qt::TabFocusReason);
    EXPECT_EQ(ringedWidget(), first);
    EXPECT_EQ(window.findChild<QFocusFrame *>()->geometry(), first->geometry().adjusted(-3, -3, 3, 3));
    sendFocusIn(second, Qt::OtherFocusReason);
    EXPECT_EQ(ringedWidget(), second) << "the program moved it after a key press";
    QTest::mousePress(first, Qt::LeftButton);
    sendFocusIn(first, Qt::MouseFocusReason);
    EXPECT_EQ(ringedWidget(), nullptr);
}

TEST_F(ControlTest, TheRingIsAroundTheFrameSetForAControlAndNeverAroundAList)
{
    QWidget window;
    auto *layout = new QVBoxLayout(&window);
    auto *holder = new QWidget;
    auto *inside = new QVBoxLayout(holder);
    auto *held = new PushButton(u"Held"_s);
    inside->addWidget(held);
    auto *list = new QListWidget;
    layout->addWidget(holder);
    layout->addWidget(list);
    FocusRing::setFrame(held, holder);
    show(window, {200, 200});
    QFocusEvent event(QEvent::FocusIn, Qt::TabFocusReason);
    QTest::keyPress(list, Qt::Key_Tab);
    QCoreApplication::sendEvent(held, &event);
    ASSERT_NE(window.findChild<QFocusFrame *>(), nullptr);
    EXPECT_EQ(window.findChild<QFocusFrame *>()->widget(), holder);
    QCoreApplication::sendEvent(list, &event);
    EXPECT_EQ(window.findChild<QFocusFrame *>()->widget(), nullptr);
}

TEST_F(ControlTest, AnEditorsMenuShowsNoShortcuts)
{
    QPlainTextEdit editor(u"text"_s);
    const std::unique_ptr<QMenu> menu(editor.createStandardContextMenu());
    ASSERT_GT(menu->actions().size(), 5);
    for (const QAction *item : menu->actions()) {
        EXPECT_FALSE(item->text().contains(u'\t')) << qPrintable(item->text());
        EXPECT_TRUE(item->shortcut().isEmpty()) << qPrintable(item->text());
    }
}

} // namespace
