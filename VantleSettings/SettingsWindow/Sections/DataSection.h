#pragma once

#include "SettingsWindow/Sections/SectionContent.h"

class SettingsModel;
struct Confirmation;

/// The Data & Privacy page: three actions that cannot be undone, each of which asks first.
class DataSection : public SectionContent
{
    Q_OBJECT

public:
    explicit DataSection(SettingsModel &model, QWidget *parent = nullptr);

private:
    QString sessionsSubtitle() const;
    QString browsersSubtitle() const;
    void confirmClearSessions();
    void confirmClearPatterns();
    void confirmUninstallHooks();
    bool agreed(const Confirmation &confirmation);

    SettingsModel &m_model;
};
