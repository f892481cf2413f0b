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

/// Over the session bus, to which the toolkit is connected anyway: that takes a twentieth of the time that
/// the tool takes, and this is asked at each start. The bus starts no service to answer it.
QDBusMessage stateQuestion()
{
    auto question = QDBusMessage::createMethodCall(
        u"org.freedesktop.systemd1"_s, u"/org/freedesktop/systemd1/unit/com_2evantle_2eagent_2eservice"_s,
        u"org.freedesktop.DBus.Properties"_s, u"Get"_s);
    question << u"org.freedesktop.systemd1.Unit"_s << u"ActiveState"_s;
    question.setAutoStartService(false);
    return question;
}

/// Whether the unit's state is one of a loaded job; an error says that it is not.
bool saysLoaded(const QDBusMessage &answer)
{
    const QString state = answer.arguments().value(0).value<QDBusVariant>().variant().toString();
    return state == u"active" || state == u"activating" || state == u"reloading";
}

/// Where systemd's tool of this name is; empty where there is none.
QString toolPath(const QString &name)
{
    for (const QString &folder : {u"/usr/bin/"_s, u"/bin/"_s, u"/run/current-system/sw/bin/"_s}) {
        if (Seam<FileSystem>::current().exists(folder + name))
            return folder + name;
    }
    return {};
}

/// Runs this command, then calls `then`: at once when its tool is not there, and it returns null.
ToolRun *run(const QStringList &command, std::function<void()> then)
{
    if (command.first().isEmpty()) {
        then();
        return nullptr;
    }
    return ToolRun::silent(command.first(), command.sliced(1),
                           [then = std::move(then)](const auto &) { then(); });
}

/// The command to the user's systemd.
QStringList systemctl(const QStringList &arguments)
{
    return QStringList{toolPath(u"systemctl"_s), u"--user"_s} + arguments;
}

/// Has systemd itself start the unit and enable it once it has started. A unit that was enabled before is not
/// while it starts, so that it is not when the start fails. Disabling also makes systemd read the unit's
/// file.
QStringList startInBackground()
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

/// Whether there is a bus on which systemd can be asked; an asynchronous call to another would never come
/// back.
bool canAsk()
{
    return hasSessionBus() && QDBusConnection::sessionBus().isConnected();
}

} // namespace

void SystemdServiceManager::isLoaded(std::chrono::milliseconds patience, Answer answer)
{
    if (!canAsk())
        return answer(false);
    const auto bus = QDBusConnection::sessionBus();
    if (patience > 0ms) {
        const QDBusMessage reply = bus.call(stateQuestion(), QDBus::Block, int(patience.count()));
        if (reply.errorName() != QDBusError::errorString(QDBusError::NoReply))
            return answer(saysLoaded(reply));
    }
    auto *watcher = new QDBusPendingCallWatcher(bus.asyncCall(stateQuestion(), withoutLimit),
                                                QCoreApplication::instance());
    QObject::connect(watcher, &QDBusPendingCallWatcher::finished, watcher,
                     [watcher, answer = std::move(answer)] {
                         watcher->deleteLater();
                         answer(saysLoaded(watcher->reply()));
                     });
}

/// Enabled once it has started, and disabled where it has not: what the switch shows is what the next login
/// does.
void SystemdServiceManager::load(Answer answer)
{
    if (!hasJobFile())
        return answer(false);
    m_inBackground = startInBackground();
    const auto finished = [this, answer = std::move(answer)](bool loaded) {
        m_inBackground.clear();
        answer(loaded);
    };
    const auto store = [=](bool loaded) {
        run(systemctl({loaded ? u"enable"_s : u"disable"_s, unit()}), [=] { finished(loaded); });
    };
    const auto check = [=, this] { canAsk() ? isLoaded(0ms, store) : finished(false); };
    const auto start = [=] { run(systemctl({u"start"_s, unit()}), check); };
    run(systemctl({u"daemon-reload"_s}), start); // the unit's file may be newer than what systemd knows of it
}

/// Stopped but not disabled: the next login starts it again.
void SystemdServiceManager::unload(Answer answer)
{
    if (!hasJobFile())
        return answer(false);
    m_inBackground = systemctl({u"stop"_s, u"--no-block"_s, unit()});
    const auto finished = [this, answer = std::move(answer)](bool loaded) {
        m_inBackground.clear();
        answer(!loaded);
    };
    run(systemctl({u"stop"_s, unit()}), [=, this] { isLoaded(0ms, finished); });
}

void SystemdServiceManager::finish(std::chrono::milliseconds limit)
{
    if (m_inBackground.isEmpty())
        return;
    if (auto *tool = run(m_inBackground, [] {}))
        tool->waitForFinished(int(limit.count()));
}
