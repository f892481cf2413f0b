#pragma once

/// The names of the system's palette. `systemColor` (Platform/Desktop/Appearance/Palette.h) gives their
/// colours.
enum class SystemColor { gray, red, orange, yellow, green, teal, blue, indigo, purple, pink };
