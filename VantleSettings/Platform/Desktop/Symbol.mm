#include "Platform/Desktop/Symbol.h"
#include "Platform/Desktop/detail/SymbolDrawing.h"

#import <AppKit/AppKit.h>

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace
{

/// The system's drawing of a symbol, as a mask; null where the system has none of this name.
QImage systemMask(const QString &name, qreal pointSize, qreal scale)
{
    NSImage *plain = [NSImage imageWithSystemSymbolName:name.toNSString() accessibilityDescription:nil];
    NSImageSymbolConfiguration *wanted =
        [NSImageSymbolConfiguration configurationWithPointSize:pointSize
                                                        weight:NSFontWeightSemibold
                                                         scale:NSImageSymbolScaleMedium];
    NSImage *symbol = [plain imageWithSymbolConfiguration:wanted];
    if (symbol == nil)
        return {};
    const int extent = static_cast<int>(std::ceil(std::max(symbol.size.width, symbol.size.height)));
    QImage mask(QSize(extent, extent) * scale, QImage::Format_RGBA8888_Premultiplied);
    mask.setDevicePixelRatio(scale);
    mask.fill(Qt::transparent);
    CGColorSpaceRef space = CGColorSpaceCreateWithName(kCGColorSpaceSRGB);
    CGContextRef context = CGBitmapContextCreate(mask.bits(), static_cast<size_t>(mask.width()),
                                                 static_cast<size_t>(mask.height()), 8,
                                                 static_cast<size_t>(mask.bytesPerLine()), space,
                                                 static_cast<uint32_t>(kCGImageAlphaPremultipliedLast) |
                                                     static_cast<uint32_t>(kCGBitmapByteOrder32Big));
    CGColorSpaceRelease(space);
    if (context == nullptr)
        return {};
    CGContextScaleCTM(context, scale, scale);
    [NSGraphicsContext saveGraphicsState];
    NSGraphicsContext.currentContext = [NSGraphicsContext graphicsContextWithCGContext:context flipped:NO];
    const NSRect target = NSMakeRect((extent - symbol.size.width) / 2, (extent - symbol.size.height) / 2,
                                     symbol.size.width, symbol.size.height);
    [symbol drawInRect:target];
    [NSGraphicsContext restoreGraphicsState];
    CGContextRelease(context);
    return mask;
}

} // namespace

QImage symbolMask(const QString &name, qreal pointSize, qreal scale)
{
    const QImage mask = systemMask(name, pointSize, scale);
    return mask.isNull() ? drawnSymbolMask(name, pointSize, scale) : mask;
}
