#pragma once

#include <QDBusConnection>
#include <QString>

/// The test program's own session bus, which the code under test uses. It has only the services that a test
/// case registers.
class PrivateBus
{
public:
    /// The connection that a case's pretended services use. The bus is started before the first test case.
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
