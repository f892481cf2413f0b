#include "Platform/Agent/LoopbackPost.h"

#include "Platform/Agent/detail/LoopbackTransfer.h"

#include <QByteArray>
#include <QDeadlineTimer>
#include <QObject>

#include <poll.h>

#include <algorithm>
#include <array>
#include <deque>

namespace
{

struct Request {
    quint16 port;
    QByteArray target;

    QByteArray bytes() const
    {
        return "POST " + target + " HTTP/1.1\r\nHost: 127.0.0.1:" + QByteArray::number(port) +
               "\r\nContent-Type: application/json\r\nContent-Length: 2\r\nConnection: close\r\n\r\n{}";
    }
};

/// Keeps what was posted in order and has six requests under way at most: what a listener with the shortest
/// usual backlog can hold, and what bounds our descriptors.
class SocketLoopbackPost : public QObject, public LoopbackPost
{
public:
    SocketLoopbackPost()
    {
        for (auto &transfer : m_transfers)
            connect(&transfer, &LoopbackTransfer::ended, this, &SocketLoopbackPost::startWaiting);
    }

    void post(const QUrl &url) override
    {
        m_waiting.push_back({static_cast<quint16>(url.port(80)), url.path(QUrl::FullyEncoded).toLatin1()});
        startWaiting();
    }

    void finish(std::chrono::milliseconds limit) override
    {
        const QDeadlineTimer deadline(limit);
        while (isPending() && !deadline.hasExpired()) {
            waitForAny(static_cast<int>(deadline.remainingTime()));
            for (auto &transfer : m_transfers) {
                transfer.proceed();
                if (!transfer.isAwaited())
                    transfer.stop();
            }
            startWaiting();
        }
        m_waiting.clear();
        for (auto &transfer : m_transfers)
            transfer.stop();
    }

private:
    bool isPending() const
    {
        return !m_waiting.empty() || std::ranges::any_of(m_transfers, &LoopbackTransfer::isAwaited);
    }

    /// Tries each free transfer once. Where no agent listens that ends at once, and the rest gets its turn
    /// later: many in a row would hold up the window.
    void startWaiting()
    {
        for (auto &transfer : m_transfers) {
            if (m_waiting.empty())
                return;
            if (!transfer.isFree())
                continue;
            transfer.start(m_waiting.front().port, m_waiting.front().bytes());
            m_waiting.pop_front();
        }
        const auto isFree = std::ranges::any_of(m_transfers, &LoopbackTransfer::isFree);
        if (isFree && !m_waiting.empty())
            QMetaObject::invokeMethod(this, &SocketLoopbackPost::startWaiting, Qt::QueuedConnection);
    }

    void waitForAny(int milliseconds)
    {
        std::array<pollfd, transferCount> sockets{};
        nfds_t count = 0;
        for (const auto &transfer : m_transfers) {
            if (!transfer.isFree())
                sockets.at(count++) = {transfer.socket(), transfer.awaitedEvents(), 0};
        }
        if (count > 0)
            ::poll(sockets.data(), count, milliseconds);
    }

    static constexpr std::size_t transferCount = 6;
    std::array<LoopbackTransfer, transferCount> m_transfers;
    std::deque<Request> m_waiting;
};

} // namespace

LoopbackPost::~LoopbackPost() = default;

LoopbackPost &LoopbackPost::system()
{
    static SocketLoopbackPost post;
    return post;
}
