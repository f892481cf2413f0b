#include "Platform/Desktop/Appearance/FontRegistry.h"

#import <AppKit/AppKit.h>
#import <CoreText/CoreText.h>

namespace
{

class CoreTextFontRegistry : public FontRegistry
{
  public:
    void add(const QStringList &files) override
    {
        for (const QString &file : files) {
            NSURL *url = [NSURL fileURLWithPath:file.toNSString()];
            CTFontManagerRegisterFontsForURL((__bridge CFURLRef)url, kCTFontManagerScopeProcess, nullptr);
        }
    }

    void finish() override {}

    bool has(const QString &postScriptName) override
    {
        return [NSFont fontWithName:postScriptName.toNSString() size:12] != nil;
    }
};

} // namespace

FontRegistry &FontRegistry::system()
{
    static CoreTextFontRegistry registry;
    return registry;
}
