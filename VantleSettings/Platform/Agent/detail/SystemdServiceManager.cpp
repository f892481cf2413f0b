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
#include <array>
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
/// the tool takes, and this is asked at each start. The bus starts nobody to answer it.
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

/// Runs the tool for the user's systemd, then calls `then`: at once when there is no such tool, and it
/// returns null.
ToolRun *runTool(const QStringList &arguments, std::function<void()> then)
{
    const std::array places{u"/usr/bin/systemctl"_s, u"/bin/systemctl"_s,
                            u"/run/current-system/sw/bin/systemctl"_s};
    const auto *const tool = std::ranges::find_if(
        places, [](const QString &path) { return Seam<FileSystem>::current().exists(path); });
    if (tool == places.end()) {
        then();
        return nullptr;
    }
    return ToolRun::silent(*tool, QStringList{u"--user"_s} + arguments,
                           [then = std::move(then)](const auto &) { then(); });
}

} // namespace

void SystemdServiceManager::isLoaded(std::chrono::milliseconds patience, Answer answer)
{
    if (!hasSessionBus())
        return answer(false);
    const auto bus = QDBusConnection::sessionBus();
    if (!bus.isConnected()) // an asynchronous call would never come back
        return answer(false);
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

/// Enabled only once it has started: a start that fails leaves the next login as it was.
void SystemdServiceManager::load(Answer answer)
{
    if (!hasJobFile())
        return answer(false);
    m_queued = QStringList{u"enable"_s, u"--now"_s, u"--no-block"_s, unit()};
    const auto finished = [this, answer = std::move(answer)](bool loaded) {
        m_queued.clear();
        answer(loaded);
    };
    const auto enable = [=] { runTool({u"enable"_s, unit()}, [=] { finished(true); }); };
    const auto check = [=, this] {
        isLoaded(0ms, [=](bool loaded) { loaded ? enable() : finished(false); });
    };
    const auto start = [=] { runTool({u"start"_s, unit()}, check); };
    runTool({u"daemon-reload"_s}, start); // the unit's file may be newer than what systemd knows of it
}

/// Stopped but not disabled: the next login starts it again.
void SystemdServiceManager::unload(Answer answer)
{
    if (!hasJobFile())
        return answer(false);
    m_queued = QStringList{u"stop"_s, u"--no-block"_s, unit()};
    const auto finished = [this, answer = std::move(answer)](bool loaded) {
        m_queued.clear();
        answer(!loaded);
    };
    runTool({u"stop"_s, unit()}, [=, this] { isLoaded(0ms, finished); });
}

void SystemdServiceManager::finish(std::chrono::milliseconds limit)
{
    if (m_queued.isEmpty())
        return;
    if (auto *run = runTool(m_queued, [] {}))
        run->waitForFinished(int(limit.count()));
}
