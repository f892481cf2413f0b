#pragma once

#include <sys/types.h>
#include <sys/wait.h>
#include <unistd.h>

/// Runs `work` in a child process and returns its result; false as well if that process ends abnormally.
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

/// As inChildProcess(), with another user's rights, so that file permissions apply even if the tests run as
/// root. An ordinary user's rights stay as they are, because permissions apply to them already.
template <class Work>
bool asStranger(Work work)
{
    return inChildProcess([&] {
        if (::geteuid() == 0 && (::setgid(strangersId) != 0 || ::setuid(strangersId) != 0))
            return false;
        return bool(work());
    });
}
