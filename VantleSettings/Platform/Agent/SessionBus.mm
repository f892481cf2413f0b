#include "Platform/Agent/SessionBus.h"

// This system has no session bus.

bool hasSessionBus() { return false; }

void abandonSilentSessionBus(std::chrono::milliseconds) {}
