#include "LaunchAgent/LaunchAgent.h"

#include "Foundation/Seam.h"
#include "Platform/Agent/ServiceManager.h"

bool LaunchAgent::isLoaded()
{
    return Seam<ServiceManager>::current().isLoaded();
}

bool LaunchAgent::load()
{
    return Seam<ServiceManager>::current().load();
}

bool LaunchAgent::unload()
{
    return Seam<ServiceManager>::current().unload();
}
