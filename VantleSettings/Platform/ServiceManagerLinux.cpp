#include "Platform/LaunchctlServiceManager.h"
#include "Platform/SystemdServiceManager.h"

ServiceManager &ServiceManager::system()
{
    static LaunchctlServiceManager launchd;
    static SystemdServiceManager systemd;
    if (LaunchctlServiceManager::isAvailable())
        return launchd;
    return systemd;
}
