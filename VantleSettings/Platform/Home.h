#pragma once

#include <QString>

#include <optional>

/// The current user's home directory, asked anew each time: `HOME` where it is absolute, else the password
/// database's; nothing where neither knows one.
std::optional<QString> homeDirectory();
