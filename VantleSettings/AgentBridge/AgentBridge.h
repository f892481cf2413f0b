#pragma once

#include <QString>

/// The one-way road to the running agent. Nothing is read back, and it makes no difference whether one
/// listens.
namespace AgentBridge
{

/// Posts to the agent's control port under this path, e.g. "/settings/reload-typeface", and returns at once.
void fireAndForget(const QString &path);

} // namespace AgentBridge
