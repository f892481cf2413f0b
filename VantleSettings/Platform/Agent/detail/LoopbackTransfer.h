#pragma once

#include <QByteArray>

#include <chrono>

/// Sends a request to a port of 127.0.0.1 on a connection of its own and waits until the listener has
/// answered it and closed the connection. Gives up when no data moves for `timeout`. Blocks; raises no
/// signal.
///
/// Plain sockets rather than the toolkit's network module: that module may send a request a second time when
/// a connection ends early, and a post must never be sent twice. It would also be one more library, with nine
/// that it depends on, to load at every start.
void transferToLoopback(quint16 port, const QByteArray &request, std::chrono::milliseconds timeout);
