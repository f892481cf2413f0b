#pragma once

#include "Platform/Agent/ServiceManager.h"

/// launchd, through its tool: the job is the property list in the user's LaunchAgents folder.
class LaunchctlServiceManager final : public ServiceManager
{
public:
    /// Whether this system has launchd's tool.
    static bool isAvailable();

    bool isLoaded() override;
    bool load() override;
    bool unload() override;
};
