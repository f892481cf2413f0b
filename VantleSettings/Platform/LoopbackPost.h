#pragma once

#include <QUrl>

/// Requests to a listener on this machine, sent and forgotten.
class LoopbackPost
{
public:
    virtual ~LoopbackPost();
    Q_DISABLE_COPY_MOVE(LoopbackPost)

    /// Posts the JSON object `{}` to this address and returns at once; no answer is ever looked at. The
    /// request is given up when nothing has moved for 1.5 seconds. It never goes through a proxy.
    virtual void post(const QUrl &url) = 0;

    static LoopbackPost &system();

protected:
    LoopbackPost() = default;
};
