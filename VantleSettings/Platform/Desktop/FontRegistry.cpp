#include "Platform/Desktop/FontRegistry.h"

FontRegistry::~FontRegistry() = default;
