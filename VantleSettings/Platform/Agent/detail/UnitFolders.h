#pragma once

#include <QStringList>

/// The folders in which a user's systemd looks for units, those of users, administrators and packages.
QStringList unitFolders();
