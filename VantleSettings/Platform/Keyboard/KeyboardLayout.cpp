#include "Platform/Keyboard/KeyboardLayout.h"

KeyboardLayout::~KeyboardLayout() = default;
