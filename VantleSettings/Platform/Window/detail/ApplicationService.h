#pragma once

#include "Platform/Window/OnlyProgram.h"

#include <QDBusConnection>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

#include <functional>

/// The D-Bus interface of the desktop entry standard, through which a desktop, or another start of the
/// program, activates the running one.
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

    // The names are the standard's. There are no files to open and no actions: both requests are treated as
    // Activate.
    Q_SLOT void Activate(const QVariantMap &platformData);
    Q_SLOT void Open(const QStringList &addresses, const QVariantMap &platformData);
    Q_SLOT void ActivateAction(const QString &name, const QVariantList &parameters,
                               const QVariantMap &platformData);

private:
    std::function<void(const LaunchToken &)> m_activate;
};
