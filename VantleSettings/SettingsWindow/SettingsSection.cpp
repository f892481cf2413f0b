#include "SettingsWindow/SettingsSection.h"

using namespace Qt::StringLiterals;

QString rawValue(SettingsSection section)
{
    switch (section) {
    case SettingsSection::general:
        return u"General"_s;
    case SettingsSection::planning:
        return u"Planning"_s;
    case SettingsSection::browser:
        return u"Browser Patterns"_s;
    case SettingsSection::data:
        return u"Data & Privacy"_s;
    case SettingsSection::about:
        return u"About"_s;
    }
    Q_UNREACHABLE();
}

std::optional<SettingsSection> settingsSection(const QString &rawValue)
{
    for (const auto section : allSettingsSections) {
        if (::rawValue(section) == rawValue)
            return section;
    }
    return std::nullopt;
}

SystemColor tint(SettingsSection section)
{
    switch (section) {
    case SettingsSection::general:
        return SystemColor::gray;
    case SettingsSection::planning:
        return SystemColor::green;
    case SettingsSection::browser:
        return SystemColor::blue;
    case SettingsSection::data:
        return SystemColor::orange;
    case SettingsSection::about:
        return SystemColor::indigo;
    }
    Q_UNREACHABLE();
}
