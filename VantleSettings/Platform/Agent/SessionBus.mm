#include "Platform/Agent/SessionBus.h"

// Programs of this system meet over launchd.

bool hasSessionBus() { return false; }

void abandonSilentSessionBus(std::chrono::milliseconds) {}
