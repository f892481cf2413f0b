#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <optional>

/// Runs a tool of the system with exactly these arguments, no shell in between, and waits until it has ended.
/// Returns what it wrote to its standard output, of any size; nothing when it could not be started. Its exit
/// status doesn't matter.
std::optional<QByteArray> toolOutput(const QString &program, const QStringList &arguments);
