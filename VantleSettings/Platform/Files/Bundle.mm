#include "Platform/Files/Bundle.h"

#import <Foundation/Foundation.h>

Bundle Bundle::main()
{
    NSBundle *bundle = NSBundle.mainBundle;
    Bundle result;
    if (bundle.executablePath)
        result.executablePath = QString::fromNSString(bundle.executablePath);
    if (bundle.resourcePath)
        result.resourceDirectory = QString::fromNSString(bundle.resourcePath);
    const id version = [bundle objectForInfoDictionaryKey:@"CFBundleShortVersionString"];
    if ([version isKindOfClass:NSString.class])
        result.version = QString::fromNSString(version);
    return result;
}
