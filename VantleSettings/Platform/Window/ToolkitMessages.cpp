#include "Platform/Window/ToolkitMessages.h"

#include <QString>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

/// The logging categories of those parts of the toolkit that only talk to other programs.
constexpr std::array<std::string_view, 4> categories{
    "qt.accessibility.atspi", // the registry of assistive technology
    "qt.qpa.services",        // the desktop's portals
    "qt.qpa.theme.dbus",      // their settings
    "qt.qpa.theme.gnome",
};

/// The beginnings of other messages: about other programs, and about a problem that the toolkit corrects
/// itself.
constexpr std::array prefixes{
    "Accessibility encountered a DBus error"_L1,
    "Could not find Accessibility DBus address"_L1,
    "Could not query active accessibility event listeners"_L1,
    "QIBusPlatformInputContext"_L1, // the input method
    "QSpiApplication"_L1,           // a screen reader that wants to know of keys
    "The cached device pixel ratio value was stale on window update"_L1,
    "QXcbClipboard: Unable to receive an event from the clipboard manager"_L1,
};

QtMessageHandler &previousHandler()
{
    static QtMessageHandler handler = nullptr;
    return handler;
}

bool isFiltered(const QMessageLogContext &context, const QString &message)
{
    const std::string_view category = context.category ? context.category : "";
    return std::ranges::find(categories, category) != categories.end() ||
           std::ranges::any_of(prefixes, [&](QLatin1String each) { return message.startsWith(each); });
}

void printUnlessFiltered(QtMsgType type, const QMessageLogContext &context, const QString &message)
{
    if (!isFiltered(context, message))
        previousHandler()(type, context, message);
}

} // namespace

void filterToolkitMessages()
{
    previousHandler() = qInstallMessageHandler(printUnlessFiltered);
}
