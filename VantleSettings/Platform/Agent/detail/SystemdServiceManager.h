#pragma once

#include "Platform/Agent/ServiceManager.h"

/// The user's systemd: the job is the unit com.vantle.agent.service. Loaded means that it is active or about
/// to be.
class SystemdServiceManager final : public ServiceManager
{
public:
    bool isLoaded() override;
    bool load() override;
    bool unload() override;
};
