#pragma once

#include "Awaited.h"
#include "Platform/Agent/ServiceManager.h"

/// The operations of the machine's service manager, which here wait for the answer and return it.
namespace Job
{

inline ServiceManager &manager()
{
    return ServiceManager::system();
}

inline bool isLoaded()
{
    Awaited<bool> answer;
    manager().isLoaded({}, answer.take());
    return answer.value();
}

inline bool load()
{
    Awaited<bool> answer;
    manager().load(answer.take());
    return answer.value();
}

inline bool unload()
{
    Awaited<bool> answer;
    manager().unload(answer.take());
    return answer.value();
}

} // namespace Job
