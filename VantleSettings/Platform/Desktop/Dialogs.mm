#include "Platform/Desktop/Dialogs.h"

#import <AppKit/AppKit.h>

namespace
{

class ModalDialogs : public Dialogs
{
  public:
    std::optional<QString> chooseDirectory(const DirectoryQuestion &question) override
    {
        NSOpenPanel *panel = [NSOpenPanel openPanel];
        panel.canChooseFiles = NO;
        panel.canChooseDirectories = YES;
        panel.allowsMultipleSelection = NO;
        panel.canCreateDirectories = YES;
        panel.title = question.title.toNSString();
        panel.message = question.message.toNSString();
        panel.prompt = question.prompt.toNSString();
        if (question.start)
            panel.directoryURL = [NSURL fileURLWithPath:question.start->toNSString()];
        if ([panel runModal] != NSModalResponseOK || panel.URL == nil)
            return std::nullopt;
        return QString::fromNSString(panel.URL.path);
    }

    bool confirm(const Confirmation &confirmation) override
    {
        NSAlert *alert = [[NSAlert alloc] init];
        alert.messageText = confirmation.message.toNSString();
        alert.informativeText = confirmation.informative.toNSString();
        alert.alertStyle =
            confirmation.style == Confirmation::Style::critical ? NSAlertStyleCritical : NSAlertStyleWarning;
        [alert addButtonWithTitle:confirmation.action.toNSString()];
        [alert addButtonWithTitle:@"Cancel"];
        // A key that was already down when the alert opened must not answer it.
        id monitor = [NSEvent addLocalMonitorForEventsMatchingMask:NSEventMaskKeyDown
                                                           handler:^NSEvent *(NSEvent *event) {
                                                             return event.ARepeat ? nil : event;
                                                           }];
        const bool agreed = [alert runModal] == NSAlertFirstButtonReturn;
        [NSEvent removeMonitor:monitor];
        return agreed;
    }
};

} // namespace

Dialogs &Dialogs::system()
{
    static ModalDialogs dialogs;
    return dialogs;
}
