#include "Platform/Desktop/Appearance/detail/SymbolDrawing.h"

#include <QDir>
#include <QPainter>
#include <QSvgRenderer>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace
{

/// The darkness of each pixel of the drawing as the toolkit shows it, moved by a part of a pixel.
QImage darkness(const QString &file, int extent, qreal offset)
{
    QImage picture(extent, extent, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
    painter.translate(offset, offset);
    QSvgRenderer(file).render(&painter, picture.rect());
    painter.end();
    picture.invertPixels();
    return picture.convertToFormat(QImage::Format_Grayscale8);
}

QImage opacity(const QImage &mask)
{
    QImage alpha = mask.convertToFormat(QImage::Format_Alpha8);
    alpha.reinterpretAsFormat(QImage::Format_Grayscale8);
    return alpha;
}

/// Whether each pixel is as in the file's drawing. An edge that is exactly between two places of the
/// toolkit's grid (1/64 of a pixel) may be drawn at either.
bool isDrawnAs(const QString &file, const QImage &mask)
{
    const QImage drawn = opacity(mask);
    const std::array pictures{darkness(file, mask.width(), 0), darkness(file, mask.width(), -1e-6),
                              darkness(file, mask.width(), 1e-6)};
    for (int y = 0; y < drawn.height(); ++y) {
        for (int x = 0; x < drawn.width(); ++x) {
            const auto isSame = [&](const QImage &picture) {
                return picture.pixel(x, y) == drawn.pixel(x, y);
            };
            if (std::ranges::none_of(pictures, isSame))
                return false;
        }
    }
    return true;
}

TEST(SymbolDrawing, EachSymbolIsDrawnAsItsFileIs)
{
    const QDir folder(QStringLiteral(VANTLE_SOURCE_DIRECTORY "/Resources/Symbols"));
    const QFileInfoList files = folder.entryInfoList({u"*.svg"_s});
    ASSERT_GE(files.size(), 20);
    for (const QFileInfo &file : files) {
        for (const qreal pointSize : {11, 14, 26}) {
            for (const qreal scale : {1.0, 1.5, 2.0}) {
                QImage mask = drawnSymbolMask(file.completeBaseName(), pointSize, scale);
                ASSERT_FALSE(mask.isNull()) << qPrintable(file.fileName());
                EXPECT_EQ(mask.devicePixelRatio(), scale);
                mask.setDevicePixelRatio(1);
                EXPECT_TRUE(isDrawnAs(file.filePath(), mask))
                    << qPrintable(file.fileName()) << " at " << pointSize << " points, scale " << scale;
            }
        }
    }
}

} // namespace
