#include "Platform/Keyboard/KeyCodes.h"

#include <algorithm>
#include <array>
#include <span>

namespace
{

struct Key {
    std::uint32_t evdev;
    std::uint16_t virtualKey;
};

// Num Lock, which sits where a Mac keyboard has Clear (71), is a lock key here and therefore missing.
constexpr std::array keys = std::to_array<Key>({
    // The row of digits.
    {41, 50}, // left of 1
    {2, 18},  // 1
    {3, 19},  // 2
    {4, 20},  // 3
    {5, 21},  // 4
    {6, 23},  // 5
    {7, 22},  // 6
    {8, 26},  // 7
    {9, 28},  // 8
    {10, 25}, // 9
    {11, 29}, // 0
    {12, 27}, // minus
    {13, 24}, // equals
    {14, 51}, // backspace

    // The row of Q.
    {15, 48}, // Tab
    {16, 12}, // Q
    {17, 13}, // W
    {18, 14}, // E
    {19, 15}, // R
    {20, 17}, // T
    {21, 16}, // Y
    {22, 32}, // U
    {23, 34}, // I
    {24, 31}, // O
    {25, 35}, // P
    {26, 33}, // left bracket
    {27, 30}, // right bracket
    {28, 36}, // Return

    // The row of A.
    {30, 0},  // A
    {31, 1},  // S
    {32, 2},  // D
    {33, 3},  // F
    {34, 5},  // G
    {35, 4},  // H
    {36, 38}, // J
    {37, 40}, // K
    {38, 37}, // L
    {39, 41}, // semicolon
    {40, 39}, // apostrophe
    {43, 42}, // backslash

    // The row of Z.
    {86, 10}, // right of the left Shift
    {44, 6},  // Z
    {45, 7},  // X
    {46, 8},  // C
    {47, 9},  // V
    {48, 11}, // B
    {49, 45}, // N
    {50, 46}, // M
    {51, 43}, // comma
    {52, 47}, // full stop
    {53, 44}, // slash
    {57, 49}, // space

    // Only on Japanese and Korean keyboards.
    {124, 93},  // yen
    {89, 94},   // ro
    {123, 102}, // Eisu
    {122, 104}, // Kana

    // Function keys.
    {1, 53},    // Escape
    {59, 122},  // F1
    {60, 120},  // F2
    {61, 99},   // F3
    {62, 118},  // F4
    {63, 96},   // F5
    {64, 97},   // F6
    {65, 98},   // F7
    {66, 100},  // F8
    {67, 101},  // F9
    {68, 109},  // F10
    {87, 103},  // F11
    {88, 111},  // F12
    {183, 105}, // F13
    {184, 107}, // F14
    {185, 113}, // F15
    {186, 106}, // F16
    {187, 64},  // F17
    {188, 79},  // F18
    {189, 80},  // F19
    {190, 90},  // F20

    // Navigation.
    {110, 114}, // Insert, which a Mac keyboard calls Help
    {111, 117}, // forward delete
    {102, 115}, // Home
    {107, 119}, // End
    {104, 116}, // Page Up
    {109, 121}, // Page Down
    {105, 123}, // left
    {106, 124}, // right
    {108, 125}, // down
    {103, 126}, // up
    {127, 110}, // context menu

    // Media.
    {113, 74}, // mute
    {114, 73}, // volume down
    {115, 72}, // volume up
});

constexpr std::array keypad = std::to_array<Key>({
    {82, 82},  // 0
    {79, 83},  // 1
    {80, 84},  // 2
    {81, 85},  // 3
    {75, 86},  // 4
    {76, 87},  // 5
    {77, 88},  // 6
    {71, 89},  // 7
    {72, 91},  // 8
    {73, 92},  // 9
    {83, 65},  // decimal point
    {55, 67},  // multiply
    {78, 69},  // add
    {98, 75},  // divide
    {74, 78},  // subtract
    {117, 81}, // equals
    {121, 95}, // comma, on Japanese keyboards
    {96, 76},  // Enter
});

template <class Value, class Projection>
const Key *find(Value value, Projection projection)
{
    for (const std::span<const Key> table : {std::span<const Key>(keys), std::span<const Key>(keypad)}) {
        const auto key = std::ranges::find(table, value, projection);
        if (key != table.end())
            return &*key;
    }
    return nullptr;
}

} // namespace

std::optional<std::uint16_t> KeyCodes::virtualKeyCode(std::uint32_t evdevCode)
{
    const Key *key = find(evdevCode, &Key::evdev);
    return key ? std::optional(key->virtualKey) : std::nullopt;
}

std::optional<std::uint32_t> KeyCodes::evdevCode(std::uint16_t virtualKeyCode)
{
    const Key *key = find(virtualKeyCode, &Key::virtualKey);
    return key ? std::optional(key->evdev) : std::nullopt;
}

bool KeyCodes::isKeypad(std::uint16_t virtualKeyCode)
{
    return std::ranges::find(keypad, virtualKeyCode, &Key::virtualKey) != keypad.end();
}
