#pragma once

/// The agent's login job, through the service manager of this system.
namespace LaunchAgent
{

bool isLoaded();

/// Loads the job; true when it is loaded afterwards, false at once when there is no job file.
bool load();

/// Unloads the job; true when it is unloaded afterwards, false at once when there is no job file.
bool unload();

} // namespace LaunchAgent
