#pragma once

#include <cstdint>

/// The modifier flags of a key press, with the values that macOS gives them. Other systems' presses are
/// turned into these.
namespace ModifierFlags
{

inline constexpr std::uint32_t capsLock = 0x1'0000;
inline constexpr std::uint32_t shift = 0x2'0000;
inline constexpr std::uint32_t control = 0x4'0000;
inline constexpr std::uint32_t option = 0x8'0000;
inline constexpr std::uint32_t command = 0x10'0000;
inline constexpr std::uint32_t numericPad = 0x20'0000;
inline constexpr std::uint32_t help = 0x40'0000;
inline constexpr std::uint32_t function = 0x80'0000;

} // namespace ModifierFlags
