#pragma once

#include <QString>
#include <QUuid>

#include <cstdint>
#include <optional>

/// One project of the planning manifest, with the number of the agent's sessions that run inside it.
struct PlanningProject {
    QUuid id = QUuid::createUuid(); ///< fresh for every load
    QString name = {};
    QString path = {};     ///< as the manifest spells it
    QString todoPath = {}; ///< as the manifest spells it
    std::int64_t sessionCount = 0;
    std::optional<bool> existsOverride = {}; ///< set for sample projects, whose folders need not exist
};
