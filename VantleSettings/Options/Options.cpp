#include "Options/Options.h"

using namespace Qt::StringLiterals;

namespace
{

template <class Options>
auto matching(const Options &options, const QString &text) -> std::optional<typename Options::value_type>
{
    for (const auto option : options) {
        if (rawValue(option) == text)
            return option;
    }
    return std::nullopt;
}

} // namespace

QString rawValue(TypefaceOption option)
{
    return option == TypefaceOption::system ? u"system"_s : u"jetbrains-mono"_s;
}

QString rawValue(TerminalBackendOption option)
{
    return option == TerminalBackendOption::iterm ? u"iterm"_s : u"vantle-term"_s;
}

std::optional<TypefaceOption> typefaceOption(const QString &rawValue)
{
    return matching(allTypefaceOptions, rawValue);
}

std::optional<TerminalBackendOption> terminalBackendOption(const QString &rawValue)
{
    return matching(allTerminalBackendOptions, rawValue);
}
