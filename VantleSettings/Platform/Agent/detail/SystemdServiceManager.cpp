#include "Platform/Agent/detail/SystemdServiceManager.h"

#include "Foundation/Seam.h"
#include "Platform/Agent/SessionBus.h"
#include "Platform/Agent/detail/ToolRun.h"
#include "Platform/Agent/detail/UnitFolders.h"
#include "Platform/Files/FileSystem.h"
#include "Platform/Files/Path.h"

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusError>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusVariant>

#include <algorithm>
#include <limits>
#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{

constexpr int withoutLimit = std::numeric_limits<int>::max();

QString unit()
{
    return u"com.vantle.agent.service"_s;
}

bool hasJobFile()
{
    return std::ranges::any_of(unitFolders(), [](const QString &folder) {
        return Seam<FileSystem>::current().exists(Path::appending(folder, unit()));
    });
}

/// Asks for the unit's state over the session bus, to which the toolkit is connected anyway: every start
/// asks, and the tool would take twenty times as long. The bus starts no service to answer.
QDBusMessage stateRequest()
{
    auto request = QDBusMessage::createMethodCall(
        u"org.freedesktop.systemd1"_s, u"/org/freedesktop/systemd1/unit/com_2evantle_2eagent_2eservice"_s,
        u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    request << u"org.freedesktop.systemd1.Unit"_s << u"ActiveState"_s;
    request.setAutoStartService(false);
    return request;
}

/// Whether the unit's state is that of a loaded job; an error means that it is not.
bool saysLoaded(const QDBusMessage &answer)
{
    const QString state = answer.arguments().value(0).value<QDBusVariant>().variant().toString();
    return state == u"active" || state == u"activating" || state == u"reloading";
}

/// The path of systemd's tool of this name; empty where there is none.
QString toolPath(const QString &name)
{
    for (const QString &folder : {u"/usr/bin/"_s, u"/bin/"_s, u"/run/current-system/sw/bin/"_s}) {
        if (Seam<FileSystem>::current().exists(folder + name))
            return folder + name;
    }
    return {};
}

/// Runs this command, then calls `then`. Where its tool is missing, calls `then` at once and returns null.
ToolRun *run(const QStringList &command, std::function<void()> then)
{
    if (command.first().isEmpty()) {
        then();
        return nullptr;
    }
    return ToolRun::silent(command.first(), command.sliced(1),
                           [then = std::move(then)](const auto &) { then(); });
}

/// The command that gives these arguments to the user's systemd.
QStringList systemctl(const QStringList &arguments)
{
    return QStringList{toolPath(u"systemctl"_s), u"--user"_s} + arguments;
}

/// The command by which systemd itself starts the unit and enables it once it has started. The unit is
/// disabled before it starts, so that it stays disabled when the start fails. Disabling also makes systemd
/// read the unit's file again.
QStringList backgroundStartCommand()
{
    const auto property = [](const QString &name, const QStringList &command) {
        return u"--property="_s + name + u'=' + command.join(u' ');
    };
    return QStringList{toolPath(u"systemd-run"_s),
                       u"--user"_s,
                       u"--no-block"_s,
                       u"--collect"_s,
                       u"--quiet"_s,
                       u"--property=Type=oneshot"_s,
                       property(u"ExecStartPre"_s, systemctl({u"disable"_s, unit()})),
                       property(u"ExecStartPost"_s, systemctl({u"enable"_s, unit()}))} +
           systemctl({u"start"_s, unit()});
}

/// Whether there is a session bus to ask systemd over. An asynchronous call on a bus that is not connected
/// would never finish.
bool isBusConnected()
{
    return hasSessionBus() && QDBusConnection::sessionBus().isConnected();
}

} // namespace

void SystemdServiceManager::isLoaded(std::chrono::milliseconds patience, Answer answer)
{
    if (!isBusConnected())
        return answer(false);
    const auto bus = QDBusConnection::sessionBus();
    if (patience > 0ms) {
        const QDBusMessage reply = bus.call(stateRequest(), QDBus::Block, int(patience.count()));
        if (reply.errorName() != QDBusError::errorString(QDBusError::NoReply))
            return answer(saysLoaded(reply));
    }
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(stateRequest(), withoutLimit),
                                                QCoreApplication::instance());
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                     [watcher, answer = std::move(answer)] {
                         watcher->deleteLater();
                         answer(saysLoaded(watcher->reply()));
                     });
}

/// Enables the unit once it has started and disables it where it has not, so that the next login does what
/// the switch shows. A unit that is enabled for all users stays so: only masking would prevent its start at
/// login, but also every other one.
void SystemdServiceManager::load(Answer answer)
{
    if (!hasJobFile())
        return answer(false);
    m_backgroundCommand = backgroundStartCommand();
    const auto finished = [this, answer = std::move(answer)](bool loaded) {
        m_backgroundCommand.clear();
        answer(loaded);
    };
    const auto store = [=](bool loaded) {
        run(systemctl({loaded ? u"enable"_s : u"disable"_s, unit()}), [=] { finished(loaded); });
    };
    const auto check = [=, this] { isBusConnected() ? isLoaded(0ms, store) : finished(false); };
    const auto start = [=] { run(systemctl({u"start"_s, unit()}), check); };
    run(systemctl({u"daemon-reload"_s}), start); // the unit's file may be newer than what systemd knows of it
}

/// Stops the unit but doesn't disable it: the next login starts it again.
void SystemdServiceManager::unload(Answer answer)
{
    if (!hasJobFile())
        return answer(false);
    m_backgroundCommand = systemctl({u"stop"_s, u"--no-block"_s, unit()});
    const auto finished = [this, answer = std::move(answer)](bool loaded) {
        m_backgroundCommand.clear();
        answer(!loaded);
    };
    run(systemctl({u"stop"_s, unit()}), [=, this] { isLoaded(0ms, finished); });
}

void SystemdServiceManager::finish(std::chrono::milliseconds limit)
{
    if (m_backgroundCommand.isEmpty())
        return;
    if (auto *tool = run(m_backgroundCommand, [] {}))
        tool->waitForFinished(int(limit.count()));
}
