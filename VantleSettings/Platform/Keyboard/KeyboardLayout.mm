#include "Platform/Keyboard/KeyboardLayout.h"

#import <Carbon/Carbon.h>
#import <Foundation/Foundation.h>

#include <array>

namespace
{

class InputSourceLayout : public KeyboardLayout
{
  public:
    InputSourceLayout()
    {
        m_observer = [NSDistributedNotificationCenter.defaultCenter
            addObserverForName:(__bridge NSString *)kTISNotifySelectedKeyboardInputSourceChanged
                        object:nil
                         queue:NSOperationQueue.mainQueue
                    usingBlock:^(NSNotification *) {
                      Q_EMIT objectWillChange();
                    }];
    }

    ~InputSourceLayout() override
    {
        [NSDistributedNotificationCenter.defaultCenter removeObserver:m_observer];
    }

    std::optional<QString> printedText(std::uint16_t virtualKeyCode) override
    {
        TISInputSourceRef source = TISCopyCurrentASCIICapableKeyboardLayoutInputSource();
        if (source == nullptr)
            return std::nullopt;
        const auto text = printedText(source, virtualKeyCode);
        CFRelease(source);
        return text;
    }

  private:
    static std::optional<QString> printedText(TISInputSourceRef source, std::uint16_t virtualKeyCode)
    {
        const auto data =
            static_cast<CFDataRef>(TISGetInputSourceProperty(source, kTISPropertyUnicodeKeyLayoutData));
        if (data == nullptr)
            return std::nullopt;
        UInt32 deadKeyState = 0;
        UniCharCount length = 0;
        std::array<UniChar, 4> characters{};
        const OSStatus status =
            UCKeyTranslate(reinterpret_cast<const UCKeyboardLayout *>(CFDataGetBytePtr(data)), virtualKeyCode,
                           kUCKeyActionDisplay, 0, LMGetKbdType(), 0, &deadKeyState, characters.size(),
                           &length, characters.data());
        if (status != noErr || length < 1)
            return std::nullopt;
        return QString::fromUtf16(reinterpret_cast<const char16_t *>(characters.data()),
                                  static_cast<qsizetype>(length));
    }

    id<NSObject> m_observer;
};

} // namespace

KeyboardLayout &KeyboardLayout::system()
{
    static InputSourceLayout layout;
    return layout;
}
