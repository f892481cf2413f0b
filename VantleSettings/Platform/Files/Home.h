#pragma once

#include <QString>

#include <optional>

/// The current user's home directory, asked anew each time: `HOME` where it is absolute, else the password
/// database's; nothing where neither knows one.
std::optional<QString> homeDirectory();

/// The home directory of the user with this name; nothing for a name that the password database doesn't have.
std::optional<QString> homeDirectory(const QString &user);
