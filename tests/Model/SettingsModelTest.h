#pragma once

#include "Model/SettingsModel.h"
#include "OutsideWorld.h"

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

/// A model of a user with two sessions in two folders, one of which has a pattern.
struct SettingsModelTest : testing::Test {
    OutsideWorld world;

    SettingsModelTest()
    {
        world.put(QStringLiteral(".vantle/sessions.json"),
                  R"([{"cwd": "/work/app"}, {"cwd": "/work/site"}])");
        world.put(QStringLiteral(".claude/browser-patterns.json"), R"({"/work/app": ["example.org/*"]})");
    }

    /// A new model; the record of its construction is cleared.
    std::unique_ptr<SettingsModel> makeModel()
    {
        auto model = std::make_unique<SettingsModel>();
        world.takeRecord();
        return model;
    }

    /// The requests of `change` to the outside world, divided by the model's announcements: those before
    /// each, and at the end those after the last.
    template <class Change>
    std::vector<std::vector<std::string>> askedBetweenAnnouncements(SettingsModel &model, Change change)
    {
        std::vector<std::vector<std::string>> records;
        const auto connection = QObject::connect(&model, &Observable::objectWillChange,
                                                 [&] { records.push_back(world.takeRecord()); });
        change();
        QObject::disconnect(connection);
        records.push_back(world.takeRecord());
        return records;
    }
};
