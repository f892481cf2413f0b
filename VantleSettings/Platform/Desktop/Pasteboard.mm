#include "Platform/Desktop/Pasteboard.h"

#import <AppKit/AppKit.h>

namespace
{

class GeneralPasteboard : public Pasteboard
{
  public:
    void setText(const QString &text) override
    {
        NSPasteboard *pasteboard = NSPasteboard.generalPasteboard;
        [pasteboard clearContents];
        [pasteboard setString:text.toNSString() forType:NSPasteboardTypeString];
    }
};

} // namespace

Pasteboard &Pasteboard::system()
{
    static GeneralPasteboard pasteboard;
    return pasteboard;
}

void Pasteboard::finish(std::chrono::milliseconds) {} // the system has kept it since it was copied
