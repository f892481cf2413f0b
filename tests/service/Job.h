#pragma once

#include "Awaited.h"
#include "LaunchAgent/LaunchAgent.h"

/// The operations of LaunchAgent, which here wait for the answer and return it.
namespace Job
{

inline bool isLoaded()
{
    Awaited<bool> answer;
    LaunchAgent::isLoaded(answer.take());
    return answer.value();
}

inline bool load()
{
    Awaited<bool> answer;
    LaunchAgent::load(answer.take());
    return answer.value();
}

inline bool unload()
{
    Awaited<bool> answer;
    LaunchAgent::unload(answer.take());
    return answer.value();
}

} // namespace Job
