#pragma once

#include <QColor>
#include <QMap>
#include <QObject>
#include <QVariantMap>

#include <functional>
#include <optional>

class QDBusVariant;

/// A desktop's appearance settings.
struct Appearance {
    std::optional<QColor> accent; ///< none where the desktop has no such setting
    bool reducedMotion = false;
    bool increasedContrast = false;
    qreal textScale = 1; ///< how much larger than usual texts are wanted

    bool operator==(const Appearance &) const = default;
};

/// The settings portal's answer: groups of settings by the group's name.
using PortalSettings = QMap<QString, QVariantMap>;

/// Reads the settings we know; values of another type or out of range count as absent.
Appearance appearance(const PortalSettings &settings);

/// The part of a wanted text scale that the screen's scale does not contain already. Under X11, desktops
/// multiply the fonts' resolution by the text scale as well, and the toolkit scales the whole window with
/// that resolution: by the text scale alone, or by twice or three times that on dense screens.
qreal textScaleBesides(qreal textScale, qreal screenScale);

/// Asks the desktop's settings portal, without ever waiting, and follows its changes. Where no portal
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
