#pragma once

#include <QUrl>

#include <chrono>

/// Requests to a listener on this machine, sent and forgotten.
class LoopbackPost
{
public:
    /// How long a request waits for its listener to connect, to read or to answer.
    static constexpr std::chrono::milliseconds timeout{1500};

    virtual ~LoopbackPost();
    Q_DISABLE_COPY_MOVE(LoopbackPost)

    /// Posts the JSON object `{}` to this port and path and returns at once; no answer is ever looked at.
    /// Only 127.0.0.1 is contacted, directly, whatever proxies there are. Any number may be pending.
    virtual void post(const QUrl &url) = 0;

    /// For the end of the program: returns when everything posted has been sent and answered, or given up, or
    /// when this time is over; at once when nothing is pending. What is left is dropped.
    virtual void finish(std::chrono::milliseconds limit) = 0;

    static LoopbackPost &system();

protected:
    LoopbackPost() = default;
};
