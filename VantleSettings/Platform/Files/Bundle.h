#pragma once

#include <QString>

#include <optional>

/// A program's own installation; members are empty where the system can't tell.
struct Bundle {
    std::optional<QString> executablePath;
    std::optional<QString> resourceDirectory; ///< files that were installed with the program
    std::optional<QString> version;           ///< the short version people see, e.g. "1.0.0"

    /// The running program's.
    static Bundle main();
};

/// The bundle of a program that is installed under a prefix: its resources are in the prefix's data
/// directory, and among them is a file `version`. A program in its build tree has neither.
Bundle installedBundle(const QString &executablePath);
