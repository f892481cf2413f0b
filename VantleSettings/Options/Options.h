#pragma once

#include <QString>

#include <array>
#include <optional>

/// The typeface the agent draws its overlay with.
enum class TypefaceOption { system, jetbrainsMono };

/// The terminal the agent focuses, lists and launches sessions in.
enum class TerminalBackendOption { iterm, vantleTerm };

/// Every option, in the order in which pickers list them.
inline constexpr std::array allTypefaceOptions{TypefaceOption::system, TypefaceOption::jetbrainsMono};
inline constexpr std::array allTerminalBackendOptions{TerminalBackendOption::iterm,
                                                      TerminalBackendOption::vantleTerm};

/// An option's form in the settings files.
QString rawValue(TypefaceOption option);
QString rawValue(TerminalBackendOption option);

/// The option with exactly this file form; nothing for any other text.
std::optional<TypefaceOption> typefaceOption(const QString &rawValue);
std::optional<TerminalBackendOption> terminalBackendOption(const QString &rawValue);
