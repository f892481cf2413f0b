#pragma once

#include "Components/Picker.h"
#include "Components/Switch.h"
#include "FakeFonts.h"
#include "Finding.h"
#include "Model/SettingsModel.h"
#include "OutsideWorld.h"
#include "SettingsWindow/Sections/GeneralSection.h"

#include <QTest>

#include <gtest/gtest.h>

/// A model and its page over the world as a test has prepared it; the record starts when the page is shown.
class ShownPage
{
public:
    explicit ShownPage(OutsideWorld &world) : m_world(world)
    {
        view.addDeferredGroups();
        view.resize(580, 900);
        view.show();
        settle();
        m_world.takeRecord();
    }

    Switch &launch() const { return *named<Switch>(view, QStringLiteral("Launch at Login")); }
    Switch &recording() const { return *named<Switch>(view, QStringLiteral("Marketing Recording Mode")); }
    Switch &updates() const { return *named<Switch>(view, QStringLiteral("Automatic Updates")); }
    Picker &typeface() const { return *named<Picker>(view, QStringLiteral("Typeface")); }
    Picker &terminal() const { return *named<Picker>(view, QStringLiteral("Terminal")); }

    /// The calls that the stand-ins recorded for a click on this switch, or for choosing this entry.
    std::vector<std::string> click(Switch &button)
    {
        QTest::mouseClick(&button, Qt::LeftButton);
        settle();
        return m_world.takeRecord();
    }
    std::vector<std::string> pick(Picker &picker, int index)
    {
        picker.setCurrentIndex(index);
        Q_EMIT picker.activated(index);
        settle();
        return m_world.takeRecord();
    }

    SettingsModel model;
    GeneralSection view{model};

private:
    OutsideWorld &m_world;
};

class GeneralPage : public testing::Test
{
protected:
    OutsideWorld world;
    FakeFonts fonts;
};
