#pragma once

#include <xcb/xcb.h>

#include <chrono>
#include <memory>
#include <string_view>

/// The program that keeps what others have copied once they have ended, as X11 desktops may have one. Asked
/// over a connection of its own, so that its answers do not get among the toolkit's events.
class ClipboardManager
{
public:
    ClipboardManager();

    /// Whether there is one.
    bool exists() const;

    /// Asks it to fetch the clipboard from its owner. Runs the event loop, by which the toolkit delivers it,
    /// until the manager has answered or the time is over. True when the clipboard has another owner by then.
    bool save(std::chrono::milliseconds timeout);

private:
    xcb_atom_t atom(std::string_view name) const;
    xcb_window_t owner(xcb_atom_t selection) const;
    void requestSave();
    bool hasAnswered() const;

    const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> m_connection;
    const xcb_atom_t m_selection;
};
