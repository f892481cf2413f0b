#pragma once

#include "Options/Options.h"
#include "Persistence/BrowserConfigProject.h"
#include "Persistence/Persistence.h"
#include "PlanningProjects/PlanningProject.h"
#include "Platform/Observable.h"
#include "SettingsWindow/SettingsSection.h"
#include "Shortcuts/Shortcuts.h"

#include <cstdint>
#include <optional>
#include <vector>

/// The state behind the window: loaded whole when it is made, changed only through its operations, which
/// write the file first and then tell the agent.
class SettingsModel : public Observable
{
    Q_OBJECT

public:
    explicit SettingsModel(QObject *parent = nullptr);

    Published<SettingsSection> section;
    Published<bool> launchAtLogin;
    Published<std::vector<BrowserConfigProject>> projects;
    Published<std::int64_t> sessionsCount;
    Published<std::int64_t> browserPatternsCount; ///< roots that have patterns, not rows
    Published<std::optional<QString>> planningRoot;
    Published<std::vector<PlanningProject>> planningProjects;
    Published<bool> demoMode;
    Published<TypefaceOption> typeface;
    Published<bool> greenScreen;
    Published<TerminalBackendOption> terminalBackend;
    Published<bool> automaticUpdates;
    Shortcuts &shortcuts() const;

    void setTypeface(TypefaceOption option);
    void setTerminalBackend(TerminalBackendOption option);
    void setPlanningRoot(const std::optional<QString> &root);
    void refreshPlanningProjects();
    void saveBrowserPatterns(const Persistence::BrowserPatterns &patterns);
    void clearSessions();
    void clearBrowserPatterns();
    void rebindShortcut(ShortcutAction action, const KeyCombo &combo);

    /// The rows of the browser-patterns page: every root of `existingConfig`, then the registry's others, by
    /// folder.
    static std::vector<BrowserConfigProject>
    buildProjectList(const Persistence::BrowserPatterns &existingConfig);
};
