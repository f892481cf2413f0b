#pragma once

#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

/// What `work` answers in a process of its own; false too when that process ends in any other way.
template <class Work>
bool inChildProcess(Work work)
{
    const pid_t child = ::fork();
    if (child == 0)
        ::_exit(work() ? 0 : 1);
    int status = 0;
    return child > 0 && ::waitpid(child, &status, 0) == child && WIFEXITED(status) &&
           WEXITSTATUS(status) == 0;
}

/// A user id that owns nothing and that the password database doesn't know.
inline constexpr uid_t strangersId = 54321;

/// The same with the rights of a stranger, to whom permissions apply even where the tests run as root. Where
/// they don't run as root, the user's own rights are limited enough.
template <class Work>
bool asStranger(Work work)
{
    return inChildProcess([&] {
        if (::geteuid() == 0 && (::setgid(strangersId) != 0 || ::setuid(strangersId) != 0))
            return false;
        return bool(work());
    });
}
