#pragma once

#include "Awaited.h"
#include "LaunchAgent/LaunchAgent.h"

/// The agent's job, each answer waited for.
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
