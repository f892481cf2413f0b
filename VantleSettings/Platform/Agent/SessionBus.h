#pragma once

#include <chrono>

/// Whether there is a session bus to connect to. Where there is none, connecting would start one.
bool hasSessionBus();

/// Makes this process do without a session bus that accepts connections and never answers: the toolkit, which
/// connects when the application object is made, would wait for it without end. Call this before the
/// application object is made; it waits no longer than `limit`.
void abandonSilentSessionBus(std::chrono::milliseconds limit);
