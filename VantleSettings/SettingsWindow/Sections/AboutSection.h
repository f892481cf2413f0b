#pragma once

#include "Platform/Files/Bundle.h"
#include "SettingsWindow/Sections/SectionContent.h"

/// The About page: the program's description and version, and the files that it shares with the agent.
class AboutSection : public SectionContent
{
    Q_OBJECT

public:
    explicit AboutSection(const Bundle &bundle = Bundle::main(), QWidget *parent = nullptr);

    /// The bundle's version, or "dev" where it has none.
    static QString version(const Bundle &bundle);
};
