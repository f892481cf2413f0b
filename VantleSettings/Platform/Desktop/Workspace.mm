#include "Platform/Desktop/Workspace.h"

#import <AppKit/AppKit.h>

namespace
{

NSURL *fileUrl(const QString &path) { return [NSURL fileURLWithPath:path.toNSString()]; }

class FinderWorkspace : public Workspace
{
  public:
    void reveal(const QString &path) override
    {
        [NSWorkspace.sharedWorkspace activateFileViewerSelectingURLs:@[ fileUrl(path) ]];
    }

    void open(const QString &path) override { [NSWorkspace.sharedWorkspace openURL:fileUrl(path)]; }
};

} // namespace

Workspace &Workspace::system()
{
    static FinderWorkspace workspace;
    return workspace;
}
