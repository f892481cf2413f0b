#pragma once

#include <QUrl>

#include <chrono>

/// Requests to a listener on this machine whose answers are ignored.
class LoopbackPost
{
public:
    /// How long a request waits for its listener to connect, to read or to answer.
    static constexpr std::chrono::milliseconds timeout{1500};

    virtual ~LoopbackPost();
    Q_DISABLE_COPY_MOVE(LoopbackPost)

    /// Posts the JSON object `{}` to this port and path and returns at once; the answer is ignored. Only
    /// 127.0.0.1 is contacted, directly, even where a proxy is configured. Any number may be pending.
    virtual void post(const QUrl &url) = 0;

    /// For the end of the program: returns when every posted request has been answered or has failed, or
    /// after `limit`; at once when nothing is pending. Requests that are not sent by then are dropped.
    virtual void finish(std::chrono::milliseconds limit) = 0;

    static LoopbackPost &system();

protected:
    LoopbackPost() = default;
};
