#pragma once

#include <chrono>
#include <functional>

/// The agent's login job, through the service manager of this system. Only `isLoaded` and `finish` wait, for
/// no longer than the caller allows. Each answer is given once, on the main thread.
namespace LaunchAgent
{

using Answer = std::function<void(bool)>;

/// Whether the job is loaded. Waits for up to `patience`; a later answer is given by the event loop.
void isLoaded(Answer answer, std::chrono::milliseconds patience = {});

/// Loads the job; true when it is loaded afterwards, false at once when there is no job file.
void load(Answer answer);

/// Unloads the job; true when it is unloaded afterwards, false at once when there is no job file.
void unload(Answer answer);

/// For the end of the program: makes sure that a change that is under way happens without the program. Waits
/// no longer than `limit`, and not at all when no change is under way.
void finish(std::chrono::milliseconds limit);

} // namespace LaunchAgent
