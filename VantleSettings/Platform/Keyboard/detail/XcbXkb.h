#pragma once

/// The X keyboard extension. Its header is C and has members called `explicit`, a keyword of C++. Compilers
/// warn of a macro that redefines a keyword except in a system header.
#pragma GCC system_header

#define explicit explicitParts
#include <xcb/xkb.h>
#undef explicit
