#pragma once

#include "Foundation/SystemColor.h"

#include <QString>

#include <array>
#include <optional>

/// The pages of the window, in sidebar order.
enum class SettingsSection { general, planning, browser, data, about };

inline constexpr std::array allSettingsSections{SettingsSection::general, SettingsSection::planning,
                                                SettingsSection::browser, SettingsSection::data,
                                                SettingsSection::about};

QString rawValue(SettingsSection section); ///< the title
std::optional<SettingsSection> settingsSection(const QString &rawValue);
SystemColor tint(SettingsSection section);
QString symbol(SettingsSection section);   ///< of the page's tile in the sidebar and the heading
QString subtitle(SettingsSection section); ///< what the page is for, below its heading
