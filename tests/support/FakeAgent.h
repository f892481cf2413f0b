#pragma once

#include <QtGlobal>

#include <array>
#include <mutex>
#include <string>
#include <thread>
#include <vector>

/// A listener on 127.0.0.1, with a thread of its own, that behaves well or badly. It serves one connection at
/// a time, as a small agent would.
class FakeAgent
{
public:
    enum class Behaviour {
        answers,          ///< reads the request, answers and closes
        answersSlowly,    ///< the same, but takes 20 ms over each
        keepsOpen,        ///< answers and leaves closing to the other side
        isSilent,         ///< reads the request and never answers
        answersGarbage,   ///< reads the request, answers with bytes that are not HTTP and closes
        answersEndlessly, ///< reads the request and keeps writing until the other side closes
        closesUnread,     ///< closes each connection without reading
    };

    /// Listens on this port; 0 is any free one.
    explicit FakeAgent(Behaviour behaviour, quint16 port = 0);
    ~FakeAgent();
    Q_DISABLE_COPY_MOVE(FakeAgent)

    quint16 port() const { return m_port; }

    /// The requests read so far, whole, in order of arrival.
    std::vector<std::string> requests() const;

    /// The same, and forgets them.
    std::vector<std::string> takeRequests();

    /// The number of connections served so far.
    std::size_t connections() const;

    /// Processes events until this many requests have been read or connections served; false when none comes
    /// for a minute.
    bool waitForRequests(std::size_t count) const;
    bool waitForConnections(std::size_t count) const;

private:
    void listen();
    void serve(int connection);
    std::string readRequest(int connection) const;
    bool waitUntilReadable(int socket, int milliseconds = -1) const;

    Behaviour m_behaviour;
    quint16 m_port = 0;
    int m_listener = -1;
    std::array<int, 2> m_stop{-1, -1};
    mutable std::mutex m_mutex;
    std::vector<std::string> m_requests;
    std::size_t m_connections = 0;
    std::vector<int> m_open;
    std::thread m_thread;
};
