#include "Platform/Window/OnlyProgram.h"

#import <AppKit/AppKit.h>
#import <CoreServices/CoreServices.h>

#include <utility>

@interface VantleReopenHandler : NSObject
@property(nonatomic) std::function<void()> reopen;
@end

@implementation VantleReopenHandler
- (void)handle:(NSAppleEventDescriptor *)event reply:(NSAppleEventDescriptor *)reply
{
    self.reopen();
}

- (void)install
{
    [NSAppleEventManager.sharedAppleEventManager setEventHandler:self
                                                     andSelector:@selector(handle:reply:)
                                                   forEventClass:kCoreEventClass
                                                      andEventID:kAEReopenApplication];
}
@end

// The system starts an application once for each user and brings it to the front itself.

LaunchToken launchToken() { return {}; }

bool becomeOnlyProgram(const LaunchToken &) { return true; }

void onReopen(std::function<void()> reopen)
{
    static VantleReopenHandler *handler = [[VantleReopenHandler alloc] init];
    handler.reopen = std::move(reopen);
    [handler install];
    // During the launch the system replaces the handler by its own, so it is installed again when the launch
    // has finished.
    [NSNotificationCenter.defaultCenter addObserver:handler
                                           selector:@selector(install)
                                               name:NSApplicationDidFinishLaunchingNotification
                                             object:nil];
}
