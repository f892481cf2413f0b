#pragma once

#include <QString>

#include <chrono>

/// The one-way road to the running agent. Nothing is read back, and it makes no difference whether one
/// listens.
namespace AgentBridge
{

/// Posts to the agent's control port under this path, e.g. "/settings/reload-typeface", and returns at once.
void fireAndForget(const QString &path);

/// Call once the window is gone and no event loop turns any more: gives what was posted last the time to
/// reach the agent, no longer than this, and not at all where there is nothing or nobody to wait for.
void finish(std::chrono::milliseconds limit);

} // namespace AgentBridge
