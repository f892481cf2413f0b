#pragma once

#include <QStringList>

/// What `FileSystem::keepCopy` does.
void copyToFreePlace(const QString &path, const QStringList &places);
