#pragma once

/// The X keyboard extension. Its header is C and has members called `explicit`, which only a system header
/// may hide.
#pragma GCC system_header

#define explicit explicitParts
#include <xcb/xkb.h>
#undef explicit
