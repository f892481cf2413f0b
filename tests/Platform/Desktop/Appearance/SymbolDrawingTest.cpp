#include "Platform/Desktop/Appearance/detail/SymbolDrawing.h"

#include <QDir>
#include <QPainter>
#include <QSvgRenderer>

#include <gtest/gtest.h>

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace
{

/// The darkness of each pixel of the drawing as the toolkit shows it.
QImage darkness(const QString &file, int extent)
{
    QImage picture(extent, extent, QImage::Format_RGB32);
    picture.fill(Qt::white);
    QPainter painter(&picture);
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

/// The greatest difference between two pixels at the same place; 255 where the sizes differ.
int difference(const QImage &one, const QImage &other)
{
    if (one.size() != other.size())
        return 255;
    int greatest = 0;
    for (int y = 0; y < one.height(); ++y) {
        for (int x = 0; x < one.width(); ++x)
            greatest = std::max(greatest, std::abs(one.constScanLine(y)[x] - other.constScanLine(y)[x]));
    }
    return greatest;
}

TEST(SymbolDrawing, EachSymbolIsDrawnAsItsFileIs)
{
    const QDir folder(QStringLiteral(VANTLE_SOURCE_DIRECTORY "/Resources/Symbols"));
    const QFileInfoList files = folder.entryInfoList({u"*.svg"_s});
    ASSERT_GE(files.size(), 20);
    constexpr int allowed =
        8; // of 255: some versions of the toolkit round a coordinate differently (seen: 4)
    for (const QFileInfo &file : files) {
        for (const qreal pointSize : {11, 14, 26}) {
            for (const qreal scale : {1.0, 1.5, 2.0}) {
                QImage mask = drawnSymbolMask(file.completeBaseName(), pointSize, scale);
                ASSERT_FALSE(mask.isNull()) << qPrintable(file.fileName());
                EXPECT_EQ(mask.devicePixelRatio(), scale);
                mask.setDevicePixelRatio(1);
                EXPECT_LE(difference(opacity(mask), darkness(file.filePath(), mask.width())), allowed)
                    << qPrintable(file.fileName()) << " at " << pointSize << " points, scale " << scale;
            }
        }
    }
}

} // namespace
