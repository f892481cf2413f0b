#pragma once

#include <QDBusConnection>
#include <QString>

/// A session bus of this test program's own: the one its code under test uses, with nobody on it but who a
/// case puts there.
class PrivateBus
{
public:
    /// The connection that a case's pretended services use. The bus is started at the first call.
    static QDBusConnection services();
};

/// Gives a pretended service its well-known name for as long as it lives.
class ServiceName
{
public:
    explicit ServiceName(const QString &name) : m_name(name) { PrivateBus::services().registerService(name); }
    ~ServiceName() { PrivateBus::services().unregisterService(m_name); }
    Q_DISABLE_COPY_MOVE(ServiceName)

private:
    QString m_name;
};
