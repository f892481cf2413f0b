#pragma once

#include <QByteArray>
#include <QString>

#include <optional>

/// The test case's own home directory.
QString testHome();

/// Reads and writes files below the test case's home, without the code under test. A missing directory is
/// made.
QString homePath(const QString &relativePath);
void putHomeFile(const QString &relativePath, const QByteArray &bytes);
std::optional<QByteArray> homeFile(const QString &relativePath);
