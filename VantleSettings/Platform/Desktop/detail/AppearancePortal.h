#pragma once

#include <QColor>
#include <QMap>
#include <QObject>
#include <QVariantMap>

#include <functional>
#include <optional>

class QDBusVariant;

/// What a desktop says of its appearance.
struct Appearance {
    std::optional<QColor> accent; ///< none where the desktop has no such notion
    bool reducedMotion = false;
    bool increasedContrast = false;

    bool operator==(const Appearance &) const = default;
};

/// The settings portal's answer: groups of settings by the group's name.
using PortalSettings = QMap<QString, QVariantMap>;

/// Reads the settings we know; values of another type or out of range count as absent.
Appearance appearance(const PortalSettings &settings);

/// Asks the desktop's settings portal, without ever waiting, and hears of its changes. Where no portal
/// answers the appearance stays the default.
class AppearancePortal : public QObject
{
    Q_OBJECT

public:
    explicit AppearancePortal(std::function<void(const Appearance &)> changed);

private:
    Q_SLOT void settingChanged(const QString &group, const QString &name, const QDBusVariant &value);
    void readAll();
    void announce();

    std::function<void(const Appearance &)> m_changed;
    PortalSettings m_settings;
    Appearance m_announced;
};
