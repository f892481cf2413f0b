#pragma once

#include <QString>

#include <functional>

/// Only one instance of the program runs: another start brings its window to the front. Another user, or
/// another home directory, has an instance of its own.

/// The token that a desktop gives a program that it starts, which lets the program's window come to the
/// front; empty where the desktop gives none.
struct LaunchToken {
    QString startupId;       ///< under X11
    QString activationToken; ///< under Wayland
};

/// The token that this program was started with. Call this before the application object is made: the toolkit
/// then removes the token from the environment.
LaunchToken launchToken();

/// Makes this process the only instance, or activates the running one. Returns false when that one has
/// brought its window to the front, and this process should end; true also when it doesn't answer within two
/// seconds. Call this once per process.
bool becomeOnlyProgram(const LaunchToken &token);

/// Calls `reopen` when the user asks for the running program again: a click on its icon in the Dock, or
/// another start. Afterwards the system brings the visible windows to the front.
void onReopen(std::function<void()> reopen);
