#pragma once

#include <xcb/xcb.h>

#include <chrono>
#include <memory>
#include <string_view>

/// The clipboard manager that an X11 desktop may have: a program that keeps what other programs have copied
/// after they have ended. It is asked over a separate connection, so that its replies are not mixed with the
/// toolkit's events.
class ClipboardManager
{
public:
    ClipboardManager();

    /// Whether there is one.
    bool exists() const;

    /// Asks the manager to fetch the clipboard from its owner. Runs the event loop, in which the toolkit
    /// delivers the contents, until the manager has answered or `timeout` is over. True when the clipboard
    /// has another owner by then.
    bool save(std::chrono::milliseconds timeout);

private:
    xcb_atom_t atom(std::string_view name) const;
    xcb_window_t owner(xcb_atom_t selection) const;
    void requestSave();
    bool hasAnswered() const;

    const std::unique_ptr<xcb_connection_t, decltype(&xcb_disconnect)> m_connection;
    const xcb_atom_t m_selection;
};
