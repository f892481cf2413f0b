#pragma once

#include <functional>

/// Calls `quit` on the main thread when the session or a terminal asks the process to end (SIGTERM, SIGINT,
/// SIGHUP), once per request. Call this once per process, after the application object is made.
void onQuitSignal(std::function<void()> quit);
