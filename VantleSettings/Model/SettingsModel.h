#pragma once

#include "Foundation/Observable.h"
#include "Model/SettingsSection.h"
#include "Options/Options.h"
#include "Persistence/BrowserConfigProject.h"
#include "Persistence/BrowserPatterns.h"
#include "PlanningProjects/PlanningProject.h"
#include "Shortcuts/Shortcuts.h"

#include <cstdint>
#include <optional>
#include <vector>

/// The state behind the window: loaded whole when it is made, changed only through its operations, which
/// write the file first and then tell the agent. The settings without an operation, `launchAtLogin`,
/// `greenScreen` and `automaticUpdates`, are saved by the page that assigns them.
class SettingsModel : public Observable
{
    Q_OBJECT

public:
    explicit SettingsModel(QObject *parent = nullptr);

    Published<SettingsSection> section{*this, SettingsSection::general};
    Published<bool> launchAtLogin{*this};           ///< what the service manager said last
    Published<bool> launchAtLoginIsChanging{*this}; ///< the manager is loading or unloading the job
    Published<std::vector<BrowserConfigProject>> projects{*this};
    Published<std::int64_t> sessionsCount{*this};
    Published<std::int64_t> browserPatternsCount{*this}; ///< roots that have patterns, not rows
    Published<std::optional<QString>> planningRoot{*this};
    Published<std::vector<PlanningProject>> planningProjects{*this};
    Published<bool> demoMode{*this}; ///< read once, when the model is made
    Published<TypefaceOption> typeface{*this};
    Published<bool> greenScreen{*this};
    Published<TerminalBackendOption> terminalBackend{*this};
    Published<bool> automaticUpdates{*this};

    /// The shortcut bindings, an Observable of their own. Code that changes them there must also emit
    /// `objectWillChange` of the model.
    Shortcuts &shortcuts() const { return *m_shortcuts; }

    void setTypeface(TypefaceOption option);
    void setTerminalBackend(TerminalBackendOption option);

    /// No root and an empty root both remove the planning file. Demo data stays as it is.
    void setPlanningRoot(const std::optional<QString> &root);
    void refreshPlanningProjects();

    /// Saves the patterns and leaves the rows alone; does nothing in demo mode.
    void saveBrowserPatterns(const Persistence::BrowserPatterns &patterns);

    /// Asks the agent to clear its registry, or, in demo mode, to start its demo again.
    void clearSessions();

    /// Removes the patterns file and empties every row; in demo mode the sample rows come back.
    void clearBrowserPatterns();

    void rebindShortcut(ShortcutAction action, const KeyCombo &combo);

    /// The rows of the browser-patterns page: every root of `existingConfig`, and the registry's other
    /// directories, all sorted by folder name without letter case.
    static std::vector<BrowserConfigProject>
    buildProjectList(const Persistence::BrowserPatterns &existingConfig);

private:
    void readLaunchAtLogin();
    void refreshBackedData();
    void refreshProjects();
    std::int64_t currentSessionsCount() const;
    std::optional<QString> currentPlanningRoot() const;

    Shortcuts *m_shortcuts = nullptr; ///< a child
};
