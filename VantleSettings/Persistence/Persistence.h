#pragma once

#include "Foundation/Text.h"
#include "Options/Options.h"
#include "Persistence/BrowserConfigProject.h"

#include <QString>
#include <QStringList>

#include <cstdint>
#include <optional>
#include <vector>

/// The JSON files the program shares with the agent. Every call looks up the home directory, then reads or
/// writes; nothing is cached. A loader gives its default for a file that is missing, unreadable or invalid; a
/// saver returns whether the file was written.
namespace Persistence
{

/// Whether the updater may look for releases by itself, and at which address. The address belongs to the
/// updater: this program saves it as it was loaded.
struct UpdatesConfig {
    bool automatic = true;
    std::optional<QString> manifestURL;

    bool operator==(const UpdatesConfig &) const = default;
};

/// URL patterns by project root, in code-point order of the root.
using BrowserPatterns = Text::Map<QStringList>;

TypefaceOption loadTypeface();               ///< `~/.vantle/typeface.json`; default jetbrainsMono
bool loadGreenScreen();                      ///< `~/.vantle/green-screen.json`; default false
TerminalBackendOption loadTerminalBackend(); ///< `~/.vantle/terminal-backend.json`; default iterm
UpdatesConfig loadUpdatesConfig();           ///< `~/.vantle/updates.json`; default automatic, no address
bool loadDemoMode();                         ///< `~/.vantle/demo-mode.json`; default false

bool saveTypeface(const QString &name);
bool saveGreenScreen(bool enabled);
bool saveTerminalBackend(const QString &backend);
bool saveUpdatesConfig(const UpdatesConfig &config);

/// The number of elements of the agent's session registry, `~/.vantle/sessions.json`; 0 where it is no array.
std::int64_t sessionsCount();

/// The distinct working directories of the registry's sessions, in order of first appearance.
QStringList knownProjects();

/// `~/.claude/browser-patterns.json`; empty by default.
BrowserPatterns loadBrowserPatterns();
bool saveBrowserPatterns(const BrowserPatterns &patterns);
void clearBrowserPatterns();

/// The patterns in the rows: one per line, trimmed. Rows without patterns are left out; of rows with the same
/// root the last wins.
BrowserPatterns browserPatterns(const std::vector<BrowserConfigProject> &rows);

/// Makes sure that the directory that contains this file exists.
void ensureDir(const QString &filePath);

} // namespace Persistence
