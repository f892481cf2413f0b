#pragma once

#include <QString>

#include <optional>

/// Where the user's planning work lives: `~/.vantle/planning.json`.
namespace Planning
{

struct Config {
    std::optional<QString> root;

    /// Equal when the roots are equal texts; two absent ones are.
    bool operator==(const Config &other) const;
};

bool save(const Config &config);
void clear(); ///< removes the file: the only form of "no root"
std::optional<QString> loadPlanningConfig();

} // namespace Planning
