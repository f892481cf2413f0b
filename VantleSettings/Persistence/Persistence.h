#pragma once

#include "Options/Options.h"

#include <QString>

#include <optional>

/// The JSON files the program shares with the agent, here those of one setting each. Every call looks up the
/// home directory, then reads or writes; nothing is cached. A loader gives its default for a file that is
/// missing, unreadable or invalid; a saver returns whether the file was written.
namespace Persistence
{

/// Whether the updater may look for releases by itself, and at which address. The address belongs to the
/// updater: this program saves it as it was loaded.
struct UpdatesConfig {
    bool automatic = true;
    std::optional<QString> manifestURL;

    bool operator==(const UpdatesConfig &) const = default;
};

TypefaceOption loadTypeface();               ///< `~/.vantle/typeface.json`; default jetbrainsMono
bool loadGreenScreen();                      ///< `~/.vantle/green-screen.json`; default false
TerminalBackendOption loadTerminalBackend(); ///< `~/.vantle/terminal-backend.json`; default iterm
UpdatesConfig loadUpdatesConfig();           ///< `~/.vantle/updates.json`; default automatic, no address
bool loadDemoMode();                         ///< `~/.vantle/demo-mode.json`; default false

bool saveTypeface(const QString &name);
bool saveGreenScreen(bool enabled);
bool saveTerminalBackend(const QString &backend);
bool saveUpdatesConfig(const UpdatesConfig &config);

} // namespace Persistence
