#include "LaunchAgent/LaunchAgent.h"

#include "Foundation/Seam.h"
#include "Platform/Agent/ServiceManager.h"

#include <utility>

void LaunchAgent::isLoaded(Answer answer, std::chrono::milliseconds patience)
{
    Seam<ServiceManager>::current().isLoaded(patience, std::move(answer));
}

void LaunchAgent::load(Answer answer)
{
    Seam<ServiceManager>::current().load(std::move(answer));
}

void LaunchAgent::unload(Answer answer)
{
    Seam<ServiceManager>::current().unload(std::move(answer));
}

void LaunchAgent::finish(std::chrono::milliseconds limit)
{
    Seam<ServiceManager>::current().finish(limit);
}
