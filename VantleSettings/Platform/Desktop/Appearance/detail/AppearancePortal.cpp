#include "Platform/Desktop/Appearance/detail/AppearancePortal.h"

#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusVariant>

#include <cmath>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr auto service = "org.freedesktop.portal.Desktop"_L1;
constexpr auto path = "/org/freedesktop/portal/desktop"_L1;
constexpr auto portal = "org.freedesktop.portal.Settings"_L1;
constexpr auto general = "org.freedesktop.appearance"_L1;
constexpr auto gnome = "org.gnome.desktop.interface"_L1;

/// A colour as three numbers from 0 to 1. Numbers outside of that range mean that there is none.
std::optional<QColor> colorFrom(const QVariant &value)
{
    if (!value.canConvert<QDBusArgument>())
        return {};
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != "(ddd)"_L1)
        return {};
    double red = -1;
    double green = -1;
    double blue = -1;
    argument.beginStructure();
    argument >> red >> green >> blue;
    argument.endStructure();
    const auto inRange = [](double part) { return part >= 0 && part <= 1; };
    if (!inRange(red) || !inRange(green) || !inRange(blue))
        return {};
    return QColor::fromRgbF(float(red), float(green), float(blue));
}

bool isOne(const QVariant &value)
{
    return value.typeId() == QMetaType::UInt && value.toUInt() == 1;
}

/// The value as a text scale; 1 where it isn't one in the allowed range.
qreal textScaleFrom(const QVariant &value)
{
    constexpr qreal smallest = 0.5; // the bounds of the desktop's own setting
    constexpr qreal largest = 3;
    const bool isFactor =
        value.typeId() == QMetaType::Double && value.toDouble() >= smallest && value.toDouble() <= largest;
    return isFactor ? value.toDouble() : 1;
}

} // namespace

Appearance appearance(const PortalSettings &settings)
{
    const QVariantMap here = settings.value(general);
    const QVariant animations = settings.value(gnome).value(u"enable-animations"_s);
    const bool areAnimationsOff = animations.typeId() == QMetaType::Bool && !animations.toBool();
    return {.accent = colorFrom(here.value(u"accent-color"_s)),
            .reducedMotion = areAnimationsOff || isOne(here.value(u"reduced-motion"_s)),
            .increasedContrast = isOne(here.value(u"contrast"_s)),
            .textScale = textScaleFrom(settings.value(gnome).value(u"text-scaling-factor"_s))};
}

qreal textScaleBesides(qreal textScale, qreal screenScale)
{
    constexpr qreal rounding = 0.01;
    const qreal rest = screenScale / textScale;
    const bool isPart = rest > 1 - rounding && std::abs(rest - std::round(rest)) < rounding;
    return isPart ? 1 : textScale;
}

AppearancePortal::AppearancePortal(std::function<void(const Appearance &)> changed)
    : m_changed(std::move(changed))
{
    qDBusRegisterMetaType<PortalSettings>();
    qRegisterMetaType<QDBusVariant>(); // a slot with an unknown parameter type is never called
    QDBusConnection bus = QDBusConnection::sessionBus();
    if (!bus.isConnected())
        return;
    bus.connect(service, path, portal, u"SettingChanged"_s, this,
                SLOT(settingChanged(QString, QString, QDBusVariant)));
    readAll();
}

void AppearancePortal::readAll()
{
    QDBusMessage request = QDBusMessage::createMethodCall(service, path, portal, u"ReadAll"_s);
    request << QStringList{general, gnome};
    auto *watcher = new QDBusPendingCallWatcher(QDBusConnection::sessionBus().asyncCall(request), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this, watcher] {
        const QDBusPendingReply<PortalSettings> reply = *watcher;
        watcher->deleteLater();
        if (reply.isError())
            return;
        m_settings = reply.value();
        announce();
    });
}

void AppearancePortal::settingChanged(const QString &group, const QString &name, const QDBusVariant &value)
{
    m_settings[group].insert(name, value.variant());
    announce();
}

void AppearancePortal::announce()
{
    const Appearance now = appearance(m_settings);
    if (std::exchange(m_announced, now) != now)
        m_changed(now);
}
