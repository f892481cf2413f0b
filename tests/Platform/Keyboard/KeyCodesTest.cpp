#include "Platform/Keyboard/KeyCodes.h"

#include <gtest/gtest.h>
#include <linux/input-event-codes.h>

#include <map>
#include <set>

namespace
{

// Far more than the highest code of either system.
constexpr std::uint32_t manyCodes = 1024;

TEST(KeyCodes, MapBothWaysToTheSameKey)
{
    std::set<std::uint16_t> reached;
    for (std::uint32_t evdev = 0; evdev < manyCodes; ++evdev) {
        const auto virtualKey = KeyCodes::virtualKeyCode(evdev);
        if (!virtualKey)
            continue;
        EXPECT_TRUE(reached.insert(*virtualKey).second) << *virtualKey << " is two keys";
        EXPECT_EQ(KeyCodes::evdevCode(*virtualKey), evdev);
    }
    for (std::uint16_t virtualKey = 0; virtualKey < manyCodes; ++virtualKey)
        EXPECT_EQ(KeyCodes::evdevCode(virtualKey).has_value(), reached.contains(virtualKey)) << virtualKey;
}

TEST(KeyCodes, AreTheCodesThatAMacReports)
{
    // The codes a Mac reports, by the kernel's names of the keys.
    const std::map<std::uint32_t, std::uint16_t> keys{
        {KEY_A, 0x00},       {KEY_S, 0x01},         {KEY_D, 0x02},          {KEY_F, 0x03},
        {KEY_H, 0x04},       {KEY_G, 0x05},         {KEY_Z, 0x06},          {KEY_X, 0x07},
        {KEY_C, 0x08},       {KEY_V, 0x09},         {KEY_102ND, 0x0A},      {KEY_B, 0x0B},
        {KEY_Q, 0x0C},       {KEY_W, 0x0D},         {KEY_E, 0x0E},          {KEY_R, 0x0F},
        {KEY_Y, 0x10},       {KEY_T, 0x11},         {KEY_1, 0x12},          {KEY_2, 0x13},
        {KEY_3, 0x14},       {KEY_4, 0x15},         {KEY_6, 0x16},          {KEY_5, 0x17},
        {KEY_EQUAL, 0x18},   {KEY_9, 0x19},         {KEY_7, 0x1A},          {KEY_MINUS, 0x1B},
        {KEY_8, 0x1C},       {KEY_0, 0x1D},         {KEY_RIGHTBRACE, 0x1E}, {KEY_O, 0x1F},
        {KEY_U, 0x20},       {KEY_LEFTBRACE, 0x21}, {KEY_I, 0x22},          {KEY_P, 0x23},
        {KEY_ENTER, 0x24},   {KEY_L, 0x25},         {KEY_J, 0x26},          {KEY_APOSTROPHE, 0x27},
        {KEY_K, 0x28},       {KEY_SEMICOLON, 0x29}, {KEY_BACKSLASH, 0x2A},  {KEY_COMMA, 0x2B},
        {KEY_SLASH, 0x2C},   {KEY_N, 0x2D},         {KEY_M, 0x2E},          {KEY_DOT, 0x2F},
        {KEY_TAB, 0x30},     {KEY_SPACE, 0x31},     {KEY_GRAVE, 0x32},      {KEY_BACKSPACE, 0x33},
        {KEY_ESC, 0x35},     {KEY_F17, 0x40},       {KEY_KPDOT, 0x41},      {KEY_KPASTERISK, 0x43},
        {KEY_KPPLUS, 0x45},  {KEY_VOLUMEUP, 0x48},  {KEY_VOLUMEDOWN, 0x49}, {KEY_MUTE, 0x4A},
        {KEY_KPSLASH, 0x4B}, {KEY_KPENTER, 0x4C},   {KEY_KPMINUS, 0x4E},    {KEY_F18, 0x4F},
        {KEY_F19, 0x50},     {KEY_KPEQUAL, 0x51},   {KEY_KP0, 0x52},        {KEY_KP1, 0x53},
        {KEY_KP2, 0x54},     {KEY_KP3, 0x55},       {KEY_KP4, 0x56},        {KEY_KP5, 0x57},
        {KEY_KP6, 0x58},     {KEY_KP7, 0x59},       {KEY_F20, 0x5A},        {KEY_KP8, 0x5B},
        {KEY_KP9, 0x5C},     {KEY_YEN, 0x5D},       {KEY_RO, 0x5E},         {KEY_KPCOMMA, 0x5F},
        {KEY_F5, 0x60},      {KEY_F6, 0x61},        {KEY_F7, 0x62},         {KEY_F3, 0x63},
        {KEY_F8, 0x64},      {KEY_F9, 0x65},        {KEY_HANJA, 0x66},      {KEY_F11, 0x67},
        {KEY_HANGEUL, 0x68}, {KEY_F13, 0x69},       {KEY_F16, 0x6A},        {KEY_F14, 0x6B},
        {KEY_F10, 0x6D},     {KEY_COMPOSE, 0x6E},   {KEY_F12, 0x6F},        {KEY_F15, 0x71},
        {KEY_INSERT, 0x72},  {KEY_HOME, 0x73},      {KEY_PAGEUP, 0x74},     {KEY_DELETE, 0x75},
        {KEY_F4, 0x76},      {KEY_END, 0x77},       {KEY_F2, 0x78},         {KEY_PAGEDOWN, 0x79},
        {KEY_F1, 0x7A},      {KEY_LEFT, 0x7B},      {KEY_RIGHT, 0x7C},      {KEY_DOWN, 0x7D},
        {KEY_UP, 0x7E}};
    for (std::uint32_t evdev = 0; evdev < manyCodes; ++evdev) {
        const auto key = keys.find(evdev);
        const auto expected = key == keys.end() ? std::nullopt : std::optional(key->second);
        EXPECT_EQ(KeyCodes::virtualKeyCode(evdev), expected) << "evdev " << evdev;
    }
}

TEST(KeyCodes, LeaveOutModifiersAndLocks)
{
    for (const std::uint32_t modifier :
         {KEY_LEFTCTRL, KEY_RIGHTCTRL, KEY_LEFTSHIFT, KEY_RIGHTSHIFT, KEY_LEFTALT, KEY_RIGHTALT, KEY_LEFTMETA,
          KEY_RIGHTMETA, KEY_CAPSLOCK, KEY_NUMLOCK, KEY_SCROLLLOCK, KEY_FN})
        EXPECT_EQ(KeyCodes::virtualKeyCode(modifier), std::nullopt) << modifier;
}

TEST(KeyCodes, KnowTheKeypad)
{
    EXPECT_TRUE(KeyCodes::isKeypad(0x52));
    EXPECT_TRUE(KeyCodes::isKeypad(0x4C));
    EXPECT_TRUE(KeyCodes::isKeypad(0x5F));
    EXPECT_FALSE(KeyCodes::isKeypad(0x12));
    EXPECT_FALSE(KeyCodes::isKeypad(0x7E));
}

} // namespace
