#include "Platform/FontRegistry.h"

FontRegistry::~FontRegistry() = default;
