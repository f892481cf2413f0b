#pragma once

#include "Platform/Agent/ServiceManager.h"

#include <QStringList>

/// The user's systemd: the job is the unit com.vantle.agent.service. Loaded means that it is active or about
/// to be. It is asked over the session bus and told by its tool.
class SystemdServiceManager final : public ServiceManager
{
public:
    void isLoaded(std::chrono::milliseconds patience, Answer answer) override;
    void load(Answer answer) override;
    void unload(Answer answer) override;
    void finish(std::chrono::milliseconds limit) override;

private:
    QStringList m_inBackground; ///< while a change is under way: the command that leaves it to systemd alone
};
