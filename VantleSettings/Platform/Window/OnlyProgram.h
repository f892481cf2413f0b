#pragma once

#include <QString>

#include <functional>

/// One program at a time: starting it again brings the running one's window to the front. A program of
/// another user or another home is another program.

/// What a desktop gives a program that it starts, so that its window may come to the front; empty where it
/// gives nothing.
struct LaunchToken {
    QString startupId;       ///< under X11
    QString activationToken; ///< under Wayland
};

/// The token that this program was started with. Before the application object is made: the toolkit removes
/// it from the environment.
LaunchToken launchToken();

/// Becomes the one program, or activates the one that is running: false when that has brought its window
/// to the front, and this one is to end. A running program that doesn't answer within two seconds keeps
/// nobody from starting. Once per process.
bool becomeOnlyProgram(const LaunchToken &token);

/// Calls `reopen` when the user asks for the running program again: a click on its icon in the Dock, or
/// another start. Afterwards the system brings the windows that are visible to the front.
void onReopen(std::function<void()> reopen);
