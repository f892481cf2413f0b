#pragma once

#include "Platform/Agent/ServiceManager.h"

#include <QStringList>

/// The user's systemd: the job is the unit com.vantle.agent.service. The job is loaded when the unit is
/// active or about to be. The state is read over the session bus, and changed by systemd's tools.
class SystemdServiceManager final : public ServiceManager
{
public:
    void isLoaded(std::chrono::milliseconds patience, Answer answer) override;
    void load(Answer answer) override;
    void unload(Answer answer) override;
    void finish(std::chrono::milliseconds limit) override;

private:
    QStringList m_backgroundCommand; ///< while a change is under way: the command that leaves it to systemd
};
