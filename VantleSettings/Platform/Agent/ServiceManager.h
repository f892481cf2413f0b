#pragma once

#include <QtGlobal>

/// The system's keeper of the agent's login job. Every call asks it afresh and waits for the answer.
class ServiceManager
{
public:
    virtual ~ServiceManager();
    Q_DISABLE_COPY_MOVE(ServiceManager)

    /// Whether the agent's job is loaded; false too when nobody can be asked.
    virtual bool isLoaded() = 0;

    /// Loads the job, now and at each login. True when it is loaded afterwards; false at once without a job
    /// file.
    virtual bool load() = 0;

    /// Unloads the job. True when it is unloaded afterwards; false at once without a job file.
    virtual bool unload() = 0;

    /// launchd where its tool exists, else the user's systemd.
    static ServiceManager &system();

protected:
    ServiceManager() = default;
};
