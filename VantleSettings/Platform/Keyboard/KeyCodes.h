#pragma once

#include <cstdint>
#include <optional>

/// The keys of a keyboard by their place on it: the Linux kernel's number of a key (evdev) and the macOS
/// virtual key code of the same key. One to one, whatever the layout: the key left of 1 is 50, the extra key
/// right of the left Shift is 10. Neither direction has the modifier and lock keys, or keys that only one of
/// the systems knows.
namespace KeyCodes
{

std::optional<std::uint16_t> virtualKeyCode(std::uint32_t evdevCode);
std::optional<std::uint32_t> evdevCode(std::uint16_t virtualKeyCode);

/// Whether the key is one of the keypad's.
bool isKeypad(std::uint16_t virtualKeyCode);

} // namespace KeyCodes
