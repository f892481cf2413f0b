#include "Platform/Agent/detail/SystemdServiceManager.h"

#include "Foundation/Seam.h"
#include "Platform/Agent/detail/ToolOutput.h"
#include "Platform/Files/FileSystem.h"
#include "Platform/Files/Home.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusVariant>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace
{

constexpr int answerLimit = 3000; // ms; reached only when systemd hangs, or the machine is very busy

QString unit()
{
    return u"com.vantle.agent.service"_s;
}

/// A variable that names a directory; relative ones don't count.
std::optional<QString> directoryFrom(const char *variable)
{
    const QString path = qEnvironmentVariable(variable);
    return path.startsWith(u'/') ? std::optional(path) : std::nullopt;
}

/// Whether the unit's file is in one of the folders that are the user's own.
bool hasJobFile()
{
    const auto home = homeDirectory();
    const std::array folders{std::pair{"XDG_CONFIG_HOME", u"/.config"_s},
                             std::pair{"XDG_DATA_HOME", u"/.local/share"_s}};
    return std::ranges::any_of(folders, [&](const auto &folder) {
        auto base = directoryFrom(folder.first);
        if (!base && home)
            base = *home + folder.second;
        return base && Seam<FileSystem>::current().exists(*base + u"/systemd/user/"_s + unit());
    });
}

/// Whether there is a session bus to ask. Connecting where there is none would start one.
bool hasSessionBus()
{
    const QByteArray address = qgetenv("DBUS_SESSION_BUS_ADDRESS");
    if (!address.isEmpty())
        return !address.contains("autolaunch:");
    const auto runtime = directoryFrom("XDG_RUNTIME_DIR");
    return runtime && Seam<FileSystem>::current().exists(*runtime + u"/bus"_s);
}

/// The unit's state in systemd's words; empty when nobody answers. Over the session bus, to which the toolkit
/// is connected anyway: that takes a twentieth of the time that the tool takes, and this is asked at each
/// start.
QString activeState()
{
    if (!hasSessionBus())
        return {};
    auto question = QDBusMessage::createMethodCall(
        u"org.freedesktop.systemd1"_s, u"/org/freedesktop/systemd1/unit/com_2evantle_2eagent_2eservice"_s,
        u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << u"org.freedesktop.systemd1.Unit"_s << u"ActiveState"_s;
    const auto answer = QDBusConnection::sessionBus().call(question, QDBus::Block, answerLimit);
    return answer.arguments().value(0).value<QDBusVariant>().variant().toString();
}

void runTool(const QStringList &arguments)
{
    const std::array places{u"/usr/bin/systemctl"_s, u"/bin/systemctl"_s,
                            u"/run/current-system/sw/bin/systemctl"_s};
    const auto *const tool = std::ranges::find_if(
        places, [](const QString &path) { return Seam<FileSystem>::current().exists(path); });
    if (tool != places.end())
        toolOutput(*tool, QStringList{u"--user"_s} + arguments);
}

} // namespace

bool SystemdServiceManager::isLoaded()
{
    const QString state = activeState();
    return state == u"active" || state == u"activating" || state == u"reloading";
}

bool SystemdServiceManager::load()
{
    if (!hasJobFile())
        return false;
    runTool({u"enable"_s, u"--now"_s, unit()});
    return isLoaded();
}

/// Stopped but not disabled: the next login starts it again.
bool SystemdServiceManager::unload()
{
    if (!hasJobFile())
        return false;
    runTool({u"stop"_s, unit()});
    return !isLoaded();
}
