#pragma once

#include "Platform/Window/OnlyProgram.h"

#include <QDBusConnection>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <functional>

/// What a desktop, or another start of the program, can ask of the running one, in the form of the desktop
/// entries' standard.
class ApplicationService : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Application")

public:
    explicit ApplicationService(QObject *parent);

    /// Calls `activate` with the token of each request.
    void onActivation(std::function<void(const LaunchToken &)> activate);

    /// Takes the names of the program on this bus and answers under them. False when another program of this
    /// home has done so before and came to the front.
    bool serve(QDBusConnection bus, const LaunchToken &token);

    // The names are the standard's. There are no files to open and no actions: both are a start like any
    // other.
    Q_SLOT void Activate(const QVariantMap &platformData);
    Q_SLOT void Open(const QStringList &addresses, const QVariantMap &platformData);
    Q_SLOT void ActivateAction(const QString &name, const QVariantList &parameters,
                               const QVariantMap &platformData);

private:
    std::function<void(const LaunchToken &)> m_activate;
};
