#pragma once

#include <cstdint>
#include <functional>
#include <memory>

/// A key that went down.
struct KeyDown {
    std::uint32_t keyCode = 0;       ///< macOS virtual key code
    std::uint32_t modifierFlags = 0; ///< Platform/Keyboard/ModifierFlags.h
    bool isRepeat = false;           ///< sent by a key that is held down
};

/// Intercepts every key-down of this program's windows while it exists: none reaches a menu, a text field or
/// an input method. Keys that a shortcut can hold go to its handler; modifier and lock keys and keys without
/// a macOS key code are dropped. The handler may destroy the monitor.
class KeyDownMonitor
{
public:
    using Handler = std::function<void(const KeyDown &)>;

    explicit KeyDownMonitor(Handler handler);
    ~KeyDownMonitor();
    KeyDownMonitor(const KeyDownMonitor &) = delete;
    KeyDownMonitor(KeyDownMonitor &&) = delete;
    KeyDownMonitor &operator=(const KeyDownMonitor &) = delete;
    KeyDownMonitor &operator=(KeyDownMonitor &&) = delete;

private:
    class Tap;
    std::unique_ptr<Tap> m_tap;
};
