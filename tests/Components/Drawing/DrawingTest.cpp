#include "Components/Drawing/Card.h"
#include "Components/Drawing/Painting.h"
#include "Components/Drawing/Tokens.h"
#include "Components/SettingsRow.h"
#include "LookTest.h"
#include "Platform/Desktop/Appearance/Palette.h"
#include "Platform/Desktop/Appearance/Symbol.h"

#include <QDir>
#include <QImage>
#include <QPainter>

using namespace Qt::StringLiterals;

namespace
{

class DrawingTest : public LookTest
{
protected:
    static QImage canvas(int points, qreal scale)
    {
        const int pixels = qRound(points * scale);
        QImage image(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
        image.setDevicePixelRatio(scale);
        image.fill(Qt::transparent);
        return image;
    }

    /// The bounding rectangle of everything painted, in pixels.
    static QRect painted(const QImage &image)
    {
        QRect bounds;
        for (int y = 0; y < image.height(); ++y) {
            for (int x = 0; x < image.width(); ++x) {
                if (qAlpha(image.pixel(x, y)) > 0)
                    bounds |= QRect(x, y, 1, 1);
            }
        }
        return bounds;
    }
};

TEST_F(DrawingTest, EverySymbolOfThePagesIsDrawn)
{
    const QStringList names{u"gearshape.fill"_s,
                            u"checklist"_s,
                            u"globe"_s,
                            u"internaldrive.fill"_s,
                            u"info"_s,
                            u"power"_s,
                            u"textformat"_s,
                            u"terminal.fill"_s,
                            u"video.fill"_s,
                            u"arrow.down.app.fill"_s,
                            u"arrow.down.circle.fill"_s,
                            u"arrow.up.circle.fill"_s,
                            u"list.bullet.rectangle.fill"_s,
                            u"arrow.counterclockwise"_s,
                            u"folder.fill"_s,
                            u"arrow.up.forward.app"_s,
                            u"folder.badge.questionmark"_s,
                            u"ellipsis.circle"_s,
                            u"questionmark.folder"_s,
                            u"doc.badge.ellipsis"_s,
                            u"arrow.clockwise"_s,
                            u"tray"_s,
                            u"rectangle.stack.fill"_s,
                            u"link.badge.plus"_s,
                            u"doc.on.doc"_s,
                            u"bell.badge.fill"_s,
                            u"bubble.left.and.bubble.right.fill"_s};
    for (const QString &name : names) {
        for (const int size : {10, 11, 13, 26, 34}) {
            QImage image = canvas(80, 2);
            QPainter painter(&image);
            drawSymbol(painter, {name, qreal(size)}, QRectF(0, 0, 80, 80), Qt::white);
            painter.end();
            const QRect bounds = painted(image);
            EXPECT_GE(bounds.height(), size) << name.toStdString() << " at " << size;
            const int extent = 2 * symbolExtent(size);
            const QRect box(80 - extent / 2, 80 - extent / 2, extent, extent);
            EXPECT_TRUE(box.contains(bounds)) << name.toStdString() << " at " << size;
        }
    }
}

TEST_F(DrawingTest, ASymbolTakesTheColourItIsAskedFor)
{
    QImage image = canvas(40, 1);
    QPainter painter(&image);
    drawSymbol(painter, {u"folder.fill"_s, 26}, QRectF(0, 0, 40, 40), QColor(255, 0, 0));
    painter.end();
    EXPECT_EQ(image.pixelColor(20, 22), QColor(255, 0, 0));
}

TEST_F(DrawingTest, AnUnknownSymbolDrawsNothing)
{
    QImage image = canvas(40, 1);
    QPainter painter(&image);
    drawSymbol(painter, {u"no.such.symbol"_s, 26}, QRectF(0, 0, 40, 40), Qt::white);
    painter.end();
    EXPECT_TRUE(painted(image).isEmpty());
}

TEST_F(DrawingTest, AHairlineIsOneDevicePixelAtEveryScale)
{
    for (const qreal scale : {1.0, 1.25, 1.5, 2.0, 3.0}) {
        for (const qreal top : {0.0, 3.0, 7.0}) {
            QImage image = canvas(20, scale);
            QPainter painter(&image);
            drawHairline(painter, QRectF(4, top, 12, 1), Qt::white);
            painter.end();
            const QRect bounds = painted(image);
            EXPECT_EQ(bounds.height(), 1) << scale << " at " << top;
            EXPECT_EQ(qAlpha(image.pixel(bounds.center())), 255) << "spread over two pixels";
        }
        QImage image = canvas(20, scale);
        QPainter painter(&image);
        drawVerticalHairline(painter, QRectF(7, 0, 1, 20), Qt::white);
        painter.end();
        EXPECT_EQ(painted(image).width(), 1) << scale;
    }
}

TEST_F(DrawingTest, ACardHasAnInnerStrokeOfHalfTheSeparatorsOpacity)
{
    for (const qreal scale : {1.0, 2.0}) {
        QImage image = canvas(60, scale);
        QPainter painter(&image);
        drawCard(painter, QRectF(0, 0, 60, 60));
        painter.end();
        const int middle = image.width() / 2;
        const int stroke = qRound(0x1C + (255 - 0x1C) * 0.06);
        EXPECT_NEAR(image.pixelColor(middle, 0).red(), stroke, 2) << scale;
        EXPECT_NEAR(image.pixelColor(0, middle).red(), stroke, 2) << scale;
        EXPECT_EQ(image.pixelColor(middle, 1), QColor(0x1C, 0x1C, 0x1E)) << scale;
    }
}

TEST_F(DrawingTest, ADividerIsALineThatStartsWhereTheTextsDo)
{
    for (const Qt::LayoutDirection direction : {Qt::LeftToRight, Qt::RightToLeft}) {
        SettingsRowDivider divider;
        divider.setLayoutDirection(direction);
        show(divider, {200, 1});
        EXPECT_EQ(divider.line(), QRectF(direction == Qt::LeftToRight ? 50 : 0, 0, 150, 1));
    }
}

TEST_F(DrawingTest, ContinuousCornersStayInsideTheRectangleAndAreSymmetric)
{
    const QRectF rect(0, 0, 40, 30);
    for (const qreal radius : {0.5, 6.0, 12.0, 15.0, 100.0}) {
        const QPainterPath path = continuousRectangle(rect, radius);
        EXPECT_TRUE(rect.adjusted(-1e-9, -1e-9, 1e-9, 1e-9).contains(path.boundingRect())) << radius;
        for (const QPointF point : {QPointF(1, 1), QPointF(3, 2), QPointF(2, 6), QPointF(10, 1)}) {
            const bool inside = path.contains(point);
            EXPECT_EQ(path.contains(QPointF(40 - point.x(), point.y())), inside);
            EXPECT_EQ(path.contains(QPointF(point.x(), 30 - point.y())), inside);
        }
        EXPECT_TRUE(path.contains(rect.center()));
    }
}

TEST_F(DrawingTest, ATintIsLightenedBy18HundredthsAtTheTop)
{
    QImage image = canvas(100, 1);
    QPainter painter(&image);
    painter.fillRect(QRectF(0, 0, 100, 100), tintGradient(QRectF(0, 0, 100, 100), QColor(0, 100, 255)));
    painter.end();
    EXPECT_NEAR(image.pixelColor(50, 0).red(), 46, 2);
    EXPECT_NEAR(image.pixelColor(50, 0).green(), 128, 2);
    EXPECT_NEAR(image.pixelColor(50, 99).red(), 0, 2);
    EXPECT_EQ(image.pixelColor(50, 50).blue(), 255);
}

TEST_F(DrawingTest, TheSystemColoursAreTheDarkOnes)
{
    EXPECT_EQ(systemColor(SystemColor::gray).name(), u"#98989d"_s);
    EXPECT_EQ(systemColor(SystemColor::red).name(), u"#ff453a"_s);
    EXPECT_EQ(systemColor(SystemColor::orange).name(), u"#ff9f0a"_s);
    EXPECT_EQ(systemColor(SystemColor::yellow).name(), u"#ffd60a"_s);
    EXPECT_EQ(systemColor(SystemColor::green).name(), u"#30d158"_s);
    EXPECT_EQ(systemColor(SystemColor::teal).name(), u"#40c8e0"_s);
    EXPECT_EQ(systemColor(SystemColor::blue).name(), u"#0a84ff"_s);
    EXPECT_EQ(systemColor(SystemColor::indigo).name(), u"#5e5ce6"_s);
    EXPECT_EQ(systemColor(SystemColor::purple).name(), u"#bf5af2"_s);
    EXPECT_EQ(systemColor(SystemColor::pink).name(), u"#ff375f"_s);
}

TEST_F(DrawingTest, TextsFollowTheSizeOfTheSystemsFont)
{
    EXPECT_EQ(textFont(TextStyle::size13Medium).pixelSize(), 13);
    EXPECT_EQ(textFont(TextStyle::size13Medium).weight(), QFont::Medium);
    EXPECT_EQ(textFont(TextStyle::size12SemiboldMono).families().first(), u"JetBrains Mono"_s);
    useTextScale(1.2);
    EXPECT_EQ(textFont(TextStyle::size13).pixelSize(), 16);
    EXPECT_EQ(textFont(TextStyle::size11).pixelSize(), 13);
    useTextScale(0.5);
    EXPECT_EQ(textFont(TextStyle::size13).pixelSize(), 13) << "never below the pages' own sizes";
    useTextScale(1);
}

} // namespace
