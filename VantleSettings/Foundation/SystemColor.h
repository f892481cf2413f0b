#pragma once

/// The system's palette by name. What a name looks like is the window's business (Platform/Palette.h).
enum class SystemColor { gray, red, orange, yellow, green, teal, blue, indigo, purple, pink };
