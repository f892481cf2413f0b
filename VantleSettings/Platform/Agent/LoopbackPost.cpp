#include "Platform/Agent/LoopbackPost.h"

#include "Platform/Agent/detail/LoopbackTransfer.h"

#include <QByteArray>

#include <pthread.h>

#include <condition_variable>
#include <csignal>
#include <deque>
#include <mutex>
#include <system_error>
#include <thread>

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

/// Blocking transfers on threads that end when no request waits any more. At most six run at a time: a
/// listener with the shortest usual backlog can hold so many, and the number of our descriptors stays
/// bounded.
class ThreadedLoopbackPost : public LoopbackPost
{
public:
    void post(const QUrl &url) override
    {
        const std::scoped_lock lock(m_mutex);
        m_waiting.push_back({static_cast<quint16>(url.port(80)), url.path(QUrl::FullyEncoded).toLatin1()});
        if (m_threadCount < maximumThreadCount)
            startThread();
    }

    void finish(std::chrono::milliseconds limit) override
    {
        std::unique_lock lock(m_mutex);
        m_threadEnded.wait_for(lock, limit, [this] { return m_threadCount == 0; });
        m_waiting.clear();
    }

private:
    void startThread()
    {
        try {
            std::thread([this] { transferWaiting(); }).detach();
            ++m_threadCount;
        } catch (const std::system_error &) {
            // The system has no more threads: a running thread sends the waiting requests, or the next one
            // that can be started.
        }
    }

    void transferWaiting()
    {
        // Signals are handled on the main thread.
        sigset_t all;
        sigfillset(&all);
        pthread_sigmask(SIG_BLOCK, &all, nullptr);

        std::unique_lock lock(m_mutex);
        while (!m_waiting.empty()) {
            const Request request = m_waiting.front();
            m_waiting.pop_front();
            lock.unlock();
            transferToLoopback(request.port, request.bytes(), timeout);
            lock.lock();
        }
        --m_threadCount;
        m_threadEnded.notify_all();
    }

    static constexpr int maximumThreadCount = 6;
    std::mutex m_mutex;
    std::condition_variable m_threadEnded;
    std::deque<Request> m_waiting;
    int m_threadCount = 0;
};

} // namespace

LoopbackPost::~LoopbackPost() = default;

LoopbackPost &LoopbackPost::system()
{
    // Never destroyed: a thread may still wait for a silent listener when the program ends.
    static auto *post = new ThreadedLoopbackPost;
    return *post;
}
