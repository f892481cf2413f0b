#pragma once

#include "Foundation/Observable.h"
#include "SettingsWindow/Sections/SectionContent.h"

class SettingsModel;
class Switch;

/// The General page: how the agent is launched, drawn and updated, and its shortcuts.
class GeneralSection : public SectionContent
{
    Q_OBJECT

public:
    explicit GeneralSection(SettingsModel &model, QWidget *parent = nullptr);

    void addDeferredGroups() override;

private:
    void addAgentGroup();
    void addRecordingGroup();
    void addUpdatesGroup();
    void bind(Switch *button, const Published<bool> &state, void (GeneralSection::*set)(bool));

    void setLaunchAtLogin(bool on);
    void setGreenScreen(bool on);
    void setAutomaticUpdates(bool on);

    SettingsModel &m_model;
};
