#include "Platform/Desktop/Appearance/FontRegistry.h"

FontRegistry::~FontRegistry() = default;
