#pragma once

#include <QString>

#include <optional>

/// Where the user's planning work lives: `~/.vantle/planning.json`.
namespace Planning
{

struct Config {
    std::optional<QString> root;

    /// Equal when both roots are equal texts or both are absent.
    bool operator==(const Config &other) const;
};

bool save(const Config &config);
void clear(); ///< removes the file, which is how the program stores "no root"
std::optional<QString> loadPlanningConfig();

} // namespace Planning
