#include "Platform/Agent/ServiceManager.h"

#include "Platform/Agent/detail/LaunchctlServiceManager.h"

ServiceManager &ServiceManager::system()
{
    static LaunchctlServiceManager launchd;
    return launchd;
}
