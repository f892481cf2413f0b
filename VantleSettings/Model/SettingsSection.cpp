#include "Model/SettingsSection.h"

#include "Foundation/RawValue.h"

using namespace Qt::StringLiterals;

namespace
{

struct Presentation {
    QString title;
    SystemColor tint;
    QString symbol;
    QString subtitle;
};

Presentation presentation(SettingsSection section)
{
    switch (section) {
    case SettingsSection::general:
        return {u"General"_s, SystemColor::gray, u"gearshape.fill"_s,
                u"Configure how the notch agent launches and the global shortcuts it listens for."_s};
    case SettingsSection::planning:
        return {u"Planning"_s, SystemColor::green, u"checklist"_s,
                u"Point the agent at the folder where your planning work lives."_s};
    case SettingsSection::browser:
        return {u"Browser Patterns"_s, SystemColor::blue, u"globe"_s,
                u"Match browser tabs to the project that owns them so ⇧⌘L opens the right page."_s};
    case SettingsSection::data:
        return {u"Data & Privacy"_s, SystemColor::orange, u"internaldrive.fill"_s,
                u"Clear persisted sessions and browser patterns, or remove the Claude/Codex hooks Vantle "
                u"installed. These actions cannot be undone."_s};
    case SettingsSection::about:
        return {u"About"_s, SystemColor::indigo, u"info"_s,
                u"Build information and the paths the agent reads and writes."_s};
    }
    Q_UNREACHABLE();
}

} // namespace

QString rawValue(SettingsSection section)
{
    return presentation(section).title;
}

std::optional<SettingsSection> settingsSection(const QString &rawValue)
{
    return fromRawValue(allSettingsSections, rawValue);
}

SystemColor tint(SettingsSection section)
{
    return presentation(section).tint;
}

QString symbol(SettingsSection section)
{
    return presentation(section).symbol;
}

QString subtitle(SettingsSection section)
{
    return presentation(section).subtitle;
}
