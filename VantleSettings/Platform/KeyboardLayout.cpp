#include "Platform/KeyboardLayout.h"

KeyboardLayout::~KeyboardLayout() = default;
