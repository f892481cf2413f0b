#include "ShortcutRecorder/ShortcutRecorder.h"

#include "Components/Drawing/Tokens.h"
#include "Foundation/Seam.h"
#include "KeyPresses.h"
#include "Platform/Desktop/Appearance/Palette.h"
#include "Platform/Keyboard/USKeyboardLayout.h"

#include <QLineEdit>
#include <QTest>
#include <QVBoxLayout>
#include <QtTest/qtestspontaneevent.h>

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>
#include <xkbcommon/xkbcommon-keysyms.h>

#include <vector>

using namespace Qt::StringLiterals;

namespace
{

constexpr KeyCombo commandShiftJ{38, 0x0300};
const PressedKey superShiftK{KEY_K, XKB_KEY_K, Qt::Key_K, Qt::MetaModifier | Qt::ShiftModifier};

/// A window with a recorder and a text field that has the keyboard.
struct RecorderWindow {
    RecorderWindow()
    {
        auto *layout = new QVBoxLayout(&window);
        layout->addWidget(recorder);
        layout->addWidget(field);
        window.show();
        field->setFocus();
    }

    USKeyboardLayout us;
    Seam<KeyboardLayout>::Replacement layoutSeam{us};
    std::vector<KeyCombo> recorded;
    QWidget window;
    ShortcutRecorder *recorder =
        new ShortcutRecorder(commandShiftJ, [this](const KeyCombo &combo) { recorded.push_back(combo); });
    QLineEdit *field = new QLineEdit;
};

QString described(const RecorderWindow &window)
{
    QCoreApplication::sendPostedEvents();
    return window.recorder->accessibleDescription();
}

TEST(ShortcutRecorder, ShowsItsComboWhileIdle)
{
    const RecorderWindow window;
    EXPECT_EQ(described(window), u"⇧⌘J"_s);
    window.recorder->setCombo({37, 0x0300});
    EXPECT_EQ(described(window), u"⇧⌘L"_s);
}

TEST(ShortcutRecorder, AsksForAShortcutWhileRecording)
{
    const RecorderWindow window;
    window.recorder->click();
    EXPECT_TRUE(window.recorder->isRecording());
    EXPECT_EQ(described(window), u"Press shortcut…"_s);
    window.recorder->setCombo({37, 0x0300});
    EXPECT_EQ(described(window), u"Press shortcut…"_s);
    window.recorder->click();
    EXPECT_FALSE(window.recorder->isRecording());
    EXPECT_EQ(described(window), u"⇧⌘L"_s);
}

TEST(ShortcutRecorder, RecordsTheNextQualifyingKeyWhereverTheKeyboardIs)
{
    RecorderWindow window;
    window.recorder->click();
    press(*window.field, {KEY_K, XKB_KEY_k, Qt::Key_K});
    press(*window.field, {KEY_K, XKB_KEY_K, Qt::Key_K, Qt::ShiftModifier});
    EXPECT_TRUE(window.recorded.empty());
    EXPECT_EQ(described(window), u"Press shortcut…"_s);
    press(*window.field, superShiftK);
    EXPECT_EQ(window.recorded, std::vector{(KeyCombo{40, 0x0300})});
    EXPECT_FALSE(window.recorder->isRecording());
    EXPECT_EQ(window.field->text(), QString());
}

TEST(ShortcutRecorder, NeverStartsByReceivingTheFocus)
{
    const RecorderWindow window;
    for (const Qt::FocusReason reason :
         {Qt::TabFocusReason, Qt::BacktabFocusReason, Qt::MouseFocusReason, Qt::OtherFocusReason}) {
        window.recorder->setFocus(reason);
        EXPECT_FALSE(window.recorder->isRecording());
        window.field->setFocus();
    }
}

TEST(ShortcutRecorder, SpaceStartsItForWhoHasNoMouse)
{
    const RecorderWindow window;
    window.recorder->setFocus();
    QTest::keyClick(window.recorder, Qt::Key_Space);
    EXPECT_TRUE(window.recorder->isRecording());
    QTest::keyClick(window.recorder, Qt::Key_Space);
    EXPECT_TRUE(window.recorder->isRecording());
}

TEST(ShortcutRecorder, TabDoesNotMoveTheFocusWhileRecording)
{
    RecorderWindow window;
    window.recorder->setFocus();
    window.recorder->click();
    press(*window.recorder, {KEY_TAB, XKB_KEY_Tab, Qt::Key_Tab});
    press(*window.recorder, {KEY_TAB, XKB_KEY_ISO_Left_Tab, Qt::Key_Backtab, Qt::ShiftModifier});
    EXPECT_EQ(window.window.focusWidget(), window.recorder);
    EXPECT_TRUE(window.recorded.empty());
}

TEST(ShortcutRecorder, StopsWhenItGoesOutOfSight)
{
    RecorderWindow window;
    window.recorder->click();
    window.window.hide();
    EXPECT_FALSE(window.recorder->isRecording());
    window.window.show();
    EXPECT_FALSE(window.recorder->isRecording());
    window.field->setFocus();
    QKeyEvent typed(QEvent::KeyPress, Qt::Key_J, Qt::NoModifier, KEY_J + 8, XKB_KEY_j, 0, u"j"_s);
    QCoreApplication::sendEvent(window.field, &typed);
    EXPECT_EQ(window.field->text(), u"j"_s);
}

TEST(ShortcutRecorder, GoesOnWhileItsWindowIsMinimised)
{
    RecorderWindow window;
    window.recorder->click();
    QHideEvent minimised;
    QSpontaneKeyEvent::setSpontaneous(&minimised);
    QCoreApplication::instance()->notify(window.recorder, &minimised);
    EXPECT_TRUE(window.recorder->isRecording());
}

TEST(ShortcutRecorder, StopsTheOneThatWasRecording)
{
    RecorderWindow window;
    ShortcutRecorder other(commandShiftJ, [](const KeyCombo &) {});
    window.recorder->click();
    other.startRecording();
    EXPECT_FALSE(window.recorder->isRecording());
    EXPECT_TRUE(other.isRecording());
}

TEST(ShortcutRecorder, ShowsACodeThatNoKeyHasInBracketsItself)
{
    const RecorderWindow window;
    window.recorder->setCombo({65536, 0x0100});
    EXPECT_EQ(described(window), u"⌘⟨65536⟩"_s);
    window.recorder->setCombo({4294967295, 0});
    EXPECT_EQ(described(window), u"⟨4294967295⟩"_s);
}

TEST(ShortcutRecorder, IsWideEnoughForItsTextAndNeverNarrowerThanOneHundredAndTwenty)
{
    const RecorderWindow window;
    EXPECT_EQ(window.recorder->sizeHint().width(), 96 + 2 * 12);
    window.recorder->setCombo({4294967295, 0x1B00});
    EXPECT_GT(window.recorder->sizeHint().width(), 96 + 2 * 12);
    EXPECT_EQ(window.recorder->sizeHint().height(), window.recorder->fontMetrics().height() + 2 * 6);
}

TEST(ShortcutRecorder, AnAmpersandIsNoMnemonic)
{
    class French : public KeyboardLayout
    {
        std::optional<QString> printedText(std::uint16_t) override { return u"&"_s; }
    };
    const RecorderWindow window;
    French french;
    const Seam<KeyboardLayout>::Replacement replacement(french);
    window.recorder->setCombo({18, 0x0100});
    EXPECT_EQ(described(window), u"⌘&"_s);
    EXPECT_TRUE(window.recorder->text().isEmpty());
}

QColor middleOfLeftEdge(QWidget &widget)
{
    const QImage image = widget.grab().toImage();
    return image.pixelColor(4, image.height() / 2);
}

TEST(ShortcutRecorder, StandsOn55HundredthsOfTheQuaternaryFillWhileIdle)
{
    const RecorderWindow window;
    QImage image(window.recorder->size(), QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    window.recorder->render(&image, {}, {}, QWidget::DrawChildren);
    EXPECT_NEAR(image.pixelColor(4, image.height() / 2).alpha(), Tokens::quaternaryFill.alpha() * 0.55, 1);
}

TEST(ShortcutRecorder, ChangesOverToTheAccentColour)
{
    const RecorderWindow window;
    const QColor idle = middleOfLeftEdge(*window.recorder);
    EXPECT_NE(idle, accentColor());
    window.recorder->click();
    EXPECT_TRUE(QTest::qWaitFor([&] { return middleOfLeftEdge(*window.recorder) == accentColor(); }));
    window.recorder->click();
    EXPECT_TRUE(QTest::qWaitFor([&] { return middleOfLeftEdge(*window.recorder) == idle; }));
}

} // namespace
