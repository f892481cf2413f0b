#pragma once

#include <QtGlobal>

#include <chrono>
#include <functional>

/// The per-user service manager, as far as the agent's login job is concerned. Every call asks it anew, and
/// only `isLoaded` and `finish` block, for no longer than the caller allows. Each answer is given once, on
/// the main thread.
class ServiceManager
{
public:
    using Answer = std::function<void(bool)>;

    virtual ~ServiceManager();
    Q_DISABLE_COPY_MOVE(ServiceManager)

    /// Whether the agent's job is loaded; false too when the manager cannot be asked. Waits for up to
    /// `patience`; an answer that takes longer is given by the event loop when it arrives.
    virtual void isLoaded(std::chrono::milliseconds patience, Answer answer) = 0;

    /// Loads the job, now and at each login, and answers when that has ended: true when the job is loaded
    /// then. Answers false at once where there is no job file.
    virtual void load(Answer answer) = 0;

    /// Unloads the job, and answers when that has ended: true when the job is unloaded then. Answers false at
    /// once where there is no job file.
    virtual void unload(Answer answer) = 0;

    /// For the end of the program, when no event loop runs any more: makes sure that a change that is under
    /// way happens without the program. Waits no longer than `limit`.
    virtual void finish(std::chrono::milliseconds limit) = 0;

    /// launchd where its tool exists, else the user's systemd.
    static ServiceManager &system();

protected:
    ServiceManager() = default;
};
