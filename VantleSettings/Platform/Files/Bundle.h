#pragma once

#include <QString>

#include <optional>

/// What a program knows of its own installation; empty where the system can't tell.
struct Bundle {
    std::optional<QString> executablePath;
    std::optional<QString> resourceDirectory; ///< files that were installed with the program
    std::optional<QString> version;           ///< the short version people see, e.g. "1.0.0"

    /// The running program's.
    static Bundle main();
};

/// The bundle that an installation under a prefix makes around its executable: resources in the prefix's data
/// directory, and among them a file `version`. A program in its build tree has neither.
Bundle installedBundle(const QString &executablePath);
