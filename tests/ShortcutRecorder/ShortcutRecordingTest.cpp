#include "ShortcutRecorder/ShortcutRecording.h"

#include "Platform/Keyboard/ModifierFlags.h"

#include <gtest/gtest.h>

#include <memory>
#include <vector>

namespace
{

constexpr std::uint32_t keyJ = 38;
constexpr std::uint32_t keyEscape = 53;
constexpr std::uint32_t keyF5 = 96;

/// A recording and what came of it.
struct Session {
    Session()
    {
        QObject::connect(&recording, &ShortcutRecording::recorded, [this](const KeyCombo &combo) {
            recorded.push_back(combo);
            wasRecording.push_back(recording.isRecording());
        });
        QObject::connect(&recording, &ShortcutRecording::recordingChanged, [this] { ++changes; });
    }

    ShortcutRecording recording;
    std::vector<KeyCombo> recorded;
    std::vector<bool> wasRecording;
    int changes = 0;
};

TEST(ShortcutRecording, IsIdleAtFirst)
{
    const Session session;
    EXPECT_FALSE(session.recording.isRecording());
}

TEST(ShortcutRecording, AClickStartsIt)
{
    Session session;
    session.recording.toggleRecording();
    EXPECT_TRUE(session.recording.isRecording());
    EXPECT_EQ(session.changes, 1);
}

TEST(ShortcutRecording, ASecondClickStopsItWithoutRecording)
{
    Session session;
    session.recording.toggleRecording();
    session.recording.toggleRecording();
    EXPECT_FALSE(session.recording.isRecording());
    EXPECT_TRUE(session.recorded.empty());
    EXPECT_EQ(session.changes, 2);
}

TEST(ShortcutRecording, AQualifyingKeyIsRecordedAndStopsIt)
{
    Session session;
    session.recording.startRecording();
    session.recording.keyDown({keyJ, ModifierFlags::command | ModifierFlags::shift});
    EXPECT_EQ(session.recorded, std::vector{(KeyCombo{keyJ, 0x0300})});
    EXPECT_EQ(session.wasRecording, std::vector{true});
    EXPECT_FALSE(session.recording.isRecording());
}

TEST(ShortcutRecording, EachOfCommandOptionAndControlQualifies)
{
    for (const std::uint32_t flag : {ModifierFlags::command, ModifierFlags::option, ModifierFlags::control}) {
        Session session;
        session.recording.startRecording();
        session.recording.keyDown({keyJ, flag});
        EXPECT_EQ(session.recorded, std::vector{(KeyCombo{keyJ, KeyCombo::carbonModifiers(flag)})});
    }
}

TEST(ShortcutRecording, PlainAndShiftedKeysAreSwallowed)
{
    Session session;
    session.recording.startRecording();
    for (const std::uint32_t flags :
         {0U, ModifierFlags::shift, ModifierFlags::capsLock, ModifierFlags::function,
          ModifierFlags::shift | ModifierFlags::numericPad | ModifierFlags::help}) {
        session.recording.keyDown({keyJ, flags});
        EXPECT_TRUE(session.recording.isRecording());
    }
    EXPECT_TRUE(session.recorded.empty());
    EXPECT_EQ(session.changes, 1);
}

TEST(ShortcutRecording, FunctionKeysNeedAQualifyingModifierToo)
{
    Session session;
    session.recording.startRecording();
    session.recording.keyDown({keyF5, ModifierFlags::function});
    EXPECT_TRUE(session.recorded.empty());
    session.recording.keyDown({keyF5, ModifierFlags::function | ModifierFlags::option});
    EXPECT_EQ(session.recorded, std::vector{(KeyCombo{keyF5, 0x0800})});
}

TEST(ShortcutRecording, EscapeCancelsWithAnyModifiers)
{
    for (const std::uint32_t flags :
         {0U, ModifierFlags::command, ModifierFlags::shift, ModifierFlags::control | ModifierFlags::option}) {
        Session session;
        session.recording.startRecording();
        session.recording.keyDown({keyEscape, flags});
        EXPECT_FALSE(session.recording.isRecording());
        EXPECT_TRUE(session.recorded.empty());
    }
}

TEST(ShortcutRecording, CapsLockDoesNotChangeWhatIsRecorded)
{
    Session session;
    session.recording.startRecording();
    session.recording.keyDown({keyJ, ModifierFlags::command | ModifierFlags::capsLock});
    EXPECT_EQ(session.recorded, std::vector{(KeyCombo{keyJ, KeyCombo::command})});
}

TEST(ShortcutRecording, RepeatsOfAHeldKeyAreIgnored)
{
    Session session;
    session.recording.startRecording();
    session.recording.keyDown({keyJ, ModifierFlags::command, true});
    session.recording.keyDown({keyEscape, 0, true});
    EXPECT_TRUE(session.recording.isRecording());
    EXPECT_TRUE(session.recorded.empty());
}

TEST(ShortcutRecording, KeysThatComeWhileIdleDoNothing)
{
    Session session;
    session.recording.keyDown({keyJ, ModifierFlags::command});
    EXPECT_TRUE(session.recorded.empty());
    EXPECT_EQ(session.changes, 0);
}

TEST(ShortcutRecording, StartingAndStoppingTwiceIsHarmless)
{
    Session session;
    session.recording.stopRecording();
    session.recording.startRecording();
    session.recording.startRecording();
    EXPECT_TRUE(session.recording.isRecording());
    session.recording.stopRecording();
    session.recording.stopRecording();
    EXPECT_FALSE(session.recording.isRecording());
    EXPECT_EQ(session.changes, 2);
}

TEST(ShortcutRecording, StartingASecondStopsTheFirst)
{
    Session first;
    Session second;
    first.recording.startRecording();
    second.recording.startRecording();
    EXPECT_FALSE(first.recording.isRecording());
    EXPECT_TRUE(second.recording.isRecording());
    EXPECT_TRUE(first.recorded.empty());
    first.recording.startRecording();
    EXPECT_FALSE(second.recording.isRecording());
}

TEST(ShortcutRecording, MayBeDestroyedByWhatItRecorded)
{
    auto recording = std::make_unique<ShortcutRecording>();
    QObject::connect(recording.get(), &ShortcutRecording::recorded, [&] { recording.reset(); });
    recording->startRecording();
    recording->keyDown({keyJ, ModifierFlags::command});
    EXPECT_EQ(recording, nullptr);
    Session next;
    next.recording.startRecording();
    EXPECT_TRUE(next.recording.isRecording());
}

} // namespace
