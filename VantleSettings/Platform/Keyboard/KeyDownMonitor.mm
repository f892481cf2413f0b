#include "Platform/Keyboard/KeyDownMonitor.h"

#import <AppKit/AppKit.h>

#include <utility>

class KeyDownMonitor::Tap
{
  public:
    explicit Tap(Handler handler)
    {
        m_token =
            [NSEvent addLocalMonitorForEventsMatchingMask:NSEventMaskKeyDown
                                                  handler:^NSEvent *(NSEvent *event) {
                                                    // The handler may remove this very block.
                                                    const Handler held = handler;
                                                    held({event.keyCode,
                                                          static_cast<std::uint32_t>(event.modifierFlags),
                                                          static_cast<bool>(event.ARepeat)});
                                                    return nil;
                                                  }];
    }

    ~Tap()
    {
        if (m_token)
            [NSEvent removeMonitor:m_token];
    }

    Tap(const Tap &) = delete;
    Tap &operator=(const Tap &) = delete;

  private:
    id m_token;
};

KeyDownMonitor::KeyDownMonitor(Handler handler) : m_tap(std::make_unique<Tap>(std::move(handler))) {}

KeyDownMonitor::~KeyDownMonitor() = default;
