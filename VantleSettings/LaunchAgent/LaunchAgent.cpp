#include "LaunchAgent/LaunchAgent.h"

#include "Platform/Seam.h"
#include "Platform/ServiceManager.h"

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
