#include "Platform/Window/detail/ApplicationService.h"

#include "Platform/Window/detail/HomeMark.h"

#include <QDBusMessage>

#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr auto objectPath = "/com/vantle/settings"_L1;
constexpr auto interfaceName = "org.freedesktop.Application"_L1;
constexpr auto startupIdKey = "desktop-startup-id"_L1;
constexpr auto activationTokenKey = "activation-token"_L1;
constexpr int busLimit = 500;     // ms; a slower bus is treated as if it gave the name
constexpr int answerLimit = 2000; // ms

/// The name of the desktop entry, under which a desktop calls the program.
QString programName()
{
    return u"com.vantle.settings"_s;
}

/// A name that only the program of this home directory has.
QString homeName()
{
    return programName() + u".home"_s + homeMark();
}

enum class Queueing { no, yes };

QDBusMessage nameRequest(const QString &name, Queueing queueing)
{
    constexpr uint doNotQueue = 4;
    auto request = QDBusMessage::createMethodCall(u"org.freedesktop.DBus"_s, u"/org/freedesktop/DBus"_s,
                                                  u"org.freedesktop.DBus"_s, u"RequestName"_s);
    request << name << (queueing == Queueing::yes ? 0U : doNotQueue);
    return request;
}

/// Asks the program that has this name to come to the front. Returns whether it has answered in time.
bool activated(const QDBusConnection &bus, const QString &name, const LaunchToken &token)
{
    auto request = QDBusMessage::createMethodCall(name, objectPath, interfaceName, u"Activate"_s);
    request.setAutoStartService(false);
    request << QVariantMap{{startupIdKey, token.startupId}, {activationTokenKey, token.activationToken}};
    return bus.call(request, QDBus::Block, answerLimit).type() == QDBusMessage::ReplyMessage;
}

} // namespace

ApplicationService::ApplicationService(QObject *parent) : QObject(parent)
{
}

void ApplicationService::onActivation(std::function<void(const LaunchToken &)> activate)
{
    m_activate = std::move(activate);
}

bool ApplicationService::serve(QDBusConnection bus, const LaunchToken &token)
{
    constexpr uint taken = 3;
    bus.registerObject(objectPath, this, QDBusConnection::ExportAllSlots);
    const QDBusMessage answer = bus.call(nameRequest(homeName(), Queueing::no), QDBus::Block, busLimit);
    if (answer.arguments().value(0).toUInt() == taken) {
        if (activated(bus, homeName(), token))
            return false;
        bus.send(nameRequest(homeName(), Queueing::yes));
    }
    bus.send(nameRequest(programName(), Queueing::yes)); // a program of another home may have it
    return true;
}

void ApplicationService::Activate(const QVariantMap &platformData)
{
    if (m_activate)
        m_activate({.startupId = platformData.value(startupIdKey).toString(),
                    .activationToken = platformData.value(activationTokenKey).toString()});
}

void ApplicationService::Open(const QStringList &, const QVariantMap &platformData)
{
    Activate(platformData);
}

void ApplicationService::ActivateAction(const QString &, const QVariantList &,
                                        const QVariantMap &platformData)
{
    Activate(platformData);
}
