#include "Options/Options.h"

#include "Foundation/RawValue.h"

using namespace Qt::StringLiterals;

QString rawValue(TypefaceOption option)
{
    switch (option) {
    case TypefaceOption::system:
        return u"system"_s;
    case TypefaceOption::jetbrainsMono:
        return u"jetbrains-mono"_s;
    }
    Q_UNREACHABLE();
}

QString rawValue(TerminalBackendOption option)
{
    switch (option) {
    case TerminalBackendOption::iterm:
        return u"iterm"_s;
    case TerminalBackendOption::vantleTerm:
        return u"vantle-term"_s;
    }
    Q_UNREACHABLE();
}

std::optional<TypefaceOption> typefaceOption(const QString &rawValue)
{
    return fromRawValue(allTypefaceOptions, rawValue);
}

std::optional<TerminalBackendOption> terminalBackendOption(const QString &rawValue)
{
    return fromRawValue(allTerminalBackendOptions, rawValue);
}
