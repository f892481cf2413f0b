#pragma once

#include <QString>

#include <chrono>

/// Sends requests to the running agent. Replies are not read, and failures are not reported.
namespace AgentBridge
{

/// Posts to the agent's control port under this path, e.g. "/settings/reload-typeface", and returns at once.
void fireAndForget(const QString &path);

/// Call after the window has closed and the event loop has ended: waits until the last requests have reached
/// the agent, no longer than `limit`, and not at all where nothing is left to send or no agent runs.
void finish(std::chrono::milliseconds limit);

} // namespace AgentBridge
