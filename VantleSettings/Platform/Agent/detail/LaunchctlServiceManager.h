#pragma once

#include "Platform/Agent/ServiceManager.h"
#include "Platform/Agent/detail/ToolRun.h"

#include <QPointer>

/// launchd, through its tool: the job is the property list in the user's LaunchAgents folder.
class LaunchctlServiceManager final : public ServiceManager
{
public:
    /// Whether this system has launchd's tool.
    static bool isAvailable();

    void isLoaded(std::chrono::milliseconds patience, Answer answer) override;
    void load(Answer answer) override;
    void unload(Answer answer) override;
    void finish(std::chrono::milliseconds limit) override;

private:
    void change(const QStringList &arguments, Answer loadedAfterwards);

    QPointer<ToolRun> m_change; ///< the last change, while its tool runs
};
