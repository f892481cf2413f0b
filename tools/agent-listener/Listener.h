#pragma once

#include <QByteArray>

#include <functional>

/// Takes requests on a port of 127.0.0.1, one connection after the other, and passes each to
/// `received` after it was answered. Returns only when the port can't be listened on.
void listenOnLoopback(quint16 port, const std::function<void()> &listening,
                      const std::function<void(const QByteArray &request)> &received);
