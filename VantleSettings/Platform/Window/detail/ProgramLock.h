#pragma once

#include <functional>

/// Where there is no session bus: takes the program's lock for this user and home directory, in the user's
/// runtime folder, for as long as the process runs, and calls `reopen` when another start of the program asks
/// for it. The lock of a process that is gone is taken over. False when the program that holds the lock has
/// reopened its window.
bool takeProgramLock(std::function<void()> reopen);
