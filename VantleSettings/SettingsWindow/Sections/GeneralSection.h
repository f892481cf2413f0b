#pragma once

#include "Foundation/Observable.h"
#include "SettingsWindow/Sections/SectionContent.h"

class Picker;
class SettingsModel;
class SettingsRow;
class Switch;

/// The General page: how the agent is launched, drawn and updated, and its shortcuts.
class GeneralSection : public SectionContent
{
    Q_OBJECT

public:
    explicit GeneralSection(SettingsModel &model, QWidget *parent = nullptr);

    void addDeferredGroups() override;

private:
    Switch *switchOf(const Published<bool> &state, void (*set)(SettingsModel &model, bool on));
    Switch *launchAtLoginSwitch();
    SettingsRow *typefaceRow();
    Picker *terminalPicker();

    SettingsModel &m_model;
};
