#pragma once

#include <QtGlobal>

#include <chrono>
#include <functional>

/// The per-user service manager, as far as the agent's login job goes. Every call asks it afresh and works
/// beside the window; answers are given on the main thread, once each.
class ServiceManager
{
public:
    using Answer = std::function<void(bool)>;

    virtual ~ServiceManager();
    Q_DISABLE_COPY_MOVE(ServiceManager)

    /// Whether the agent's job is loaded; false too when the manager cannot be asked. Waits for up to
    /// `patience`; an answer that takes longer is given by the event loop when it arrives.
    virtual void isLoaded(std::chrono::milliseconds patience, Answer answer) = 0;

    /// Loads the job, now and at each login, and answers once that is over: true when it is loaded then.
    /// False at once without a job file.
    virtual void load(Answer answer) = 0;

    /// Unloads the job, and answers once that is over: true when it is unloaded then. False at once without a
    /// job file.
    virtual void unload(Answer answer) = 0;

    /// For the end of the program, when no event loop runs any more: makes sure that a change that is under
    /// way happens without the program. Waits no longer than this.
    virtual void finish(std::chrono::milliseconds limit) = 0;

    /// launchd where its tool exists, else the user's systemd.
    static ServiceManager &system();

protected:
    ServiceManager() = default;
};
