#pragma once

#include <QString>

/// A file that the program shares with the agent. `path` is its place in the home directory; `reload` is the
/// path of the request that tells the agent of a change, and is null where the agent needs none.
struct SharedFile {
    QString path;
    QString reload = {};
};

namespace SharedFiles
{

inline const SharedFile typeface{QStringLiteral(u".vantle/typeface.json"),
                                 QStringLiteral(u"/settings/reload-typeface")};
inline const SharedFile terminalBackend{QStringLiteral(u".vantle/terminal-backend.json"),
                                        QStringLiteral(u"/settings/reload-terminal-backend")};
inline const SharedFile greenScreen{QStringLiteral(u".vantle/green-screen.json"),
                                    QStringLiteral(u"/settings/reload-green-screen")};
inline const SharedFile shortcuts{QStringLiteral(u".vantle/shortcuts.json"),
                                  QStringLiteral(u"/settings/reload-shortcuts")};
inline const SharedFile planning{QStringLiteral(u".vantle/planning.json"),
                                 QStringLiteral(u"/settings/reload-planning")};
inline const SharedFile updates{QStringLiteral(u".vantle/updates.json")};
inline const SharedFile browserPatterns{QStringLiteral(u".claude/browser-patterns.json")};
inline const SharedFile sessions{QStringLiteral(u".vantle/sessions.json")};  ///< the agent's; only read
inline const SharedFile demoMode{QStringLiteral(u".vantle/demo-mode.json")}; ///< only read

} // namespace SharedFiles
