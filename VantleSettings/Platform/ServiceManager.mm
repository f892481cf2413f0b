#include "Platform/ServiceManager.h"

#include "Platform/LaunchctlServiceManager.h"

ServiceManager &ServiceManager::system()
{
    static LaunchctlServiceManager launchd;
    return launchd;
}
