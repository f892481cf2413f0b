#include "Platform/Desktop/Appearance/detail/SymbolDrawing.h"

#import <AppKit/AppKit.h>

#include <QPainter>

#include <algorithm>
#include <cmath>

namespace
{

NSFontWeight systemWeight(QFont::Weight weight)
{
    if (weight >= QFont::DemiBold)
        return NSFontWeightSemibold;
    return weight >= QFont::Medium ? NSFontWeightMedium : NSFontWeightRegular;
}

/// The system's drawing of a symbol, as a mask; null where the system has none of this name.
QImage systemMask(const Symbol &symbol, qreal scale)
{
    NSImage *plain = [NSImage imageWithSystemSymbolName:symbol.name.toNSString()
                               accessibilityDescription:nil];
    NSImageSymbolConfiguration *wanted =
        [NSImageSymbolConfiguration configurationWithPointSize:symbol.pointSize
                                                        weight:systemWeight(symbol.weight)
                                                         scale:NSImageSymbolScaleMedium];
    NSImage *image = [plain imageWithSymbolConfiguration:wanted];
    if (image == nil)
        return {};
    const NSSize size = image.size;
    const int extent = static_cast<int>(std::ceil(std::max(size.width, size.height)));
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
    [image drawInRect:NSMakeRect((extent - size.width) / 2, (extent - size.height) / 2, size.width,
                                 size.height)];
    [NSGraphicsContext restoreGraphicsState];
    CGContextRelease(context);
    return mask;
}

} // namespace

QImage symbolMask(const Symbol &symbol, qreal scale)
{
    const QImage mask = systemMask(symbol, scale);
    return mask.isNull() ? drawnSymbolMask(symbol.name, symbol.pointSize, scale) : mask;
}
