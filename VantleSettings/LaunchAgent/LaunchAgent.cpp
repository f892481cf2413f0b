#include "LaunchAgent/LaunchAgent.h"

#include "Foundation/Seam.h"
#include "Platform/Agent/ServiceManager.h"

#include <utility>

using namespace std::chrono_literals;

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

void LaunchAgent::finish()
{
    Seam<ServiceManager>::current().finish(900ms);
}
