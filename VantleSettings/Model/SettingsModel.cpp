#include "Model/SettingsModel.h"

#include "AgentBridge/AgentBridge.h"
#include "LaunchAgent/LaunchAgent.h"
#include "Model/DemoData.h"
#include "Persistence/Persistence.h"
#include "Persistence/SessionRegistry.h"
#include "Persistence/SharedFiles.h"
#include "Planning/Planning.h"
#include "PlanningProjects/PlanningProjects.h"

#include <QPointer>

using namespace Qt::StringLiterals;

namespace
{

constexpr std::int64_t demoSessionsCount = 4;
// Together with the wait for a session bus this stays below a second.
constexpr std::chrono::milliseconds servicePatience{500};
constexpr auto demoPlanningRoot = "/Users/demo/workspace/planning"_L1;

} // namespace

SettingsModel::SettingsModel(QObject *parent) : Observable(parent)
{
    // NOLINTBEGIN(cppcoreguidelines-prefer-member-initializer): each may read those before it
    demoMode = Persistence::loadDemoMode();
    refreshProjects();
    sessionsCount = currentSessionsCount();
    readLaunchAtLogin();
    m_shortcuts = new Shortcuts(this);
    typeface = Persistence::loadTypeface();
    greenScreen = Persistence::loadGreenScreen();
    terminalBackend = Persistence::loadTerminalBackend();
    automaticUpdates = Persistence::loadUpdatesConfig().automatic;
    planningRoot = currentPlanningRoot();
    refreshPlanningProjects();
    // NOLINTEND(cppcoreguidelines-prefer-member-initializer)
}

void SettingsModel::setTypeface(TypefaceOption option)
{
    if (option == typeface)
        return;
    Persistence::saveTypeface(rawValue(option));
    typeface = option;
    AgentBridge::fireAndForget(SharedFiles::typeface.reload);
}

void SettingsModel::setTerminalBackend(TerminalBackendOption option)
{
    if (option == terminalBackend)
        return;
    Persistence::saveTerminalBackend(rawValue(option));
    terminalBackend = option;
    AgentBridge::fireAndForget(SharedFiles::terminalBackend.reload);
}

void SettingsModel::setPlanningRoot(const std::optional<QString> &root)
{
    if (demoMode) {
        planningRoot = currentPlanningRoot();
        refreshPlanningProjects();
        return;
    }
    planningRoot = root;
    if (root && !root->isEmpty())
        Planning::save({.root = root});
    else
        Planning::clear();
    refreshPlanningProjects();
    AgentBridge::fireAndForget(SharedFiles::planning.reload);
}

void SettingsModel::refreshPlanningProjects()
{
    planningProjects = demoMode ? DemoData::planningProjects() : PlanningProjects::load(planningRoot);
}

void SettingsModel::saveBrowserPatterns(const Persistence::BrowserPatterns &patterns)
{
    if (demoMode)
        return;
    Persistence::saveBrowserPatterns(patterns);
    browserPatternsCount = static_cast<std::int64_t>(patterns.size());
}

void SettingsModel::clearSessions()
{
    if (demoMode) {
        sessionsCount = demoSessionsCount;
        AgentBridge::fireAndForget(u"/settings/reload-demo-mode"_s);
        return;
    }
    AgentBridge::fireAndForget(u"/settings/clear-sessions"_s);
    sessionsCount = 0;
}

void SettingsModel::clearBrowserPatterns()
{
    if (demoMode) {
        refreshBackedData();
        return;
    }
    Persistence::clearBrowserPatterns();
    browserPatternsCount = 0;
    projects.modify([](std::vector<BrowserConfigProject> &rows) {
        for (auto &row : rows)
            row = BrowserConfigProject{.root = row.root};
    });
}

void SettingsModel::rebindShortcut(ShortcutAction action, const KeyCombo &combo)
{
    m_shortcuts->bindings.modify([&](Shortcuts::Bindings &bindings) { bindings[action] = combo; });
    m_shortcuts->save();
    AgentBridge::fireAndForget(SharedFiles::shortcuts.reload);
    Q_EMIT objectWillChange();
}

/// A late answer is stored when it arrives, unless a change has begun meanwhile: the change stores its own.
void SettingsModel::readLaunchAtLogin()
{
    const auto store = [model = QPointer(this)](bool loaded) {
        if (model && !model->launchAtLoginIsChanging)
            model->launchAtLogin = loaded;
    };
    LaunchAgent::isLoaded(store, servicePatience);
}

/// Reloads projects, sessions and planning, but not the small preference files.
void SettingsModel::refreshBackedData()
{
    refreshProjects();
    sessionsCount = currentSessionsCount();
    planningRoot = currentPlanningRoot();
    refreshPlanningProjects();
}

void SettingsModel::refreshProjects()
{
    const auto patterns = demoMode ? DemoData::browserPatterns() : Persistence::loadBrowserPatterns();
    projects = buildProjectList(patterns);
    browserPatternsCount = static_cast<std::int64_t>(patterns.size());
}

std::int64_t SettingsModel::currentSessionsCount() const
{
    return demoMode ? demoSessionsCount : Persistence::sessionsCount();
}

std::optional<QString> SettingsModel::currentPlanningRoot() const
{
    return demoMode ? QString(demoPlanningRoot) : Planning::loadPlanningConfig();
}
