#pragma once

#include <QBasicTimer>
#include <QByteArray>
#include <QObject>
#include <QSocketNotifier>

/// Carries one request at a time to a port of 127.0.0.1, on a connection of its own, and can be used again
/// when that is over. Plain sockets rather than the toolkit's network module: that is one more library with
/// nine behind it to load at every start, for one request that may never be made.
class LoopbackTransfer : public QObject
{
    Q_OBJECT

public:
    LoopbackTransfer();
    ~LoopbackTransfer() override;
    Q_DISABLE_COPY_MOVE(LoopbackTransfer)

    /// Connects, and sends what can be sent without waiting. False when it has ended already, since no agent
    /// listens.
    bool start(quint16 port, const QByteArray &request);

    /// Does what can be done without waiting.
    void proceed();

    /// Closes the connection, whatever its state.
    void stop();

    bool isFree() const { return m_socket < 0; }

    /// Whether it is under way and not yet answered.
    bool isAwaited() const { return m_socket >= 0 && !m_answered; }

    /// The connection's descriptor and the poll(2) events it waits for; -1 when there is none.
    int socket() const { return m_socket; }
    short awaitedEvents() const;

Q_SIGNALS:
    /// The connection is closed: by the listener, or because it was silent for too long.
    void ended();

protected:
    void timerEvent(QTimerEvent *event) override;

private:
    void send();
    void receive();
    void end();
    void moved();

    int m_socket = -1;
    QByteArray m_unsent;
    bool m_answered = false;
    QSocketNotifier m_readable{QSocketNotifier::Read};
    QSocketNotifier m_writable{QSocketNotifier::Write};
    QBasicTimer m_tick;
    int m_quietTicks = 0;
};
