#pragma once

#include <QString>

/// The one-way road to the running agent. Nothing is read back, and it makes no difference whether one
/// listens.
namespace AgentBridge
{

/// Posts to the agent's control port under this path, e.g. "/settings/reload-typeface", and returns at once.
void fireAndForget(const QString &path);

/// Call once the window is gone and no event loop turns any more: gives what was posted last the time to
/// reach the agent, at once where there is nothing or nobody to wait for, 1.5 seconds at most.
void finish();

} // namespace AgentBridge
