#pragma once

#include <QStringList>

/// Implements `FileSystem::keepCopy`.
void copyToFreePlace(const QString &path, const QStringList &places);
