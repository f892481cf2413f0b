#include "Platform/Agent/detail/LaunchctlServiceManager.h"
#include "Platform/Agent/detail/SystemdServiceManager.h"

ServiceManager &ServiceManager::system()
{
    static LaunchctlServiceManager launchd;
    static SystemdServiceManager systemd;
    if (LaunchctlServiceManager::isAvailable())
        return launchd;
    return systemd;
}
