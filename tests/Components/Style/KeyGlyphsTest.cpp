#include "Components/Drawing/Tokens.h"
#include "Components/Style/Look.h"
#include "FontRegistration/FontRegistration.h"
#include "Platform/Desktop/Appearance/FontRegistry.h"

#include <QApplication>
#include <QFontDatabase>
#include <QGlyphRun>
#include <QImage>
#include <QPainter>
#include <QTextLayout>

#include <gtest/gtest.h>

using namespace Qt::StringLiterals;

namespace
{

const QString signs = u"⎋↩⇥␣⌫⌦⇞⇟↖↘←→↑↓⌃⌥⇧⌘⟨⟩"_s;

// A code point that no font will ever have.
const QString noncharacter = QString::fromUcs4(U"\U0010FFFE");

/// The program's texts on a machine that has the fonts it declares and no others.
class KeyGlyphs : public testing::TestWithParam<TextStyle>
{
protected:
    static void SetUpTestSuite()
    {
        const QStringList aliases{u"Sans Serif"_s, u"Serif"_s, u"Monospace"_s};
        for (const QString &family : QFontDatabase::families()) {
            const bool isDeclared = family.startsWith(u"DejaVu Sans"_s) || family.startsWith(u"Inter"_s);
            ASSERT_TRUE(isDeclared || aliases.contains(family)) << family.toStdString() << " is not declared";
        }
        FontRegistration::registerBundledFonts();
        FontRegistry::system().finish();
        ASSERT_TRUE(QFontDatabase::hasFamily(u"JetBrains Mono"_s));
        installLook(*qApp);
    }

    static QImage drawn(const QString &text, const QFont &font)
    {
        QImage image(48, 48, QImage::Format_ARGB32_Premultiplied);
        image.fill(Qt::black);
        QPainter painter(&image);
        painter.setFont(font);
        painter.setPen(Qt::white);
        painter.drawText(image.rect(), Qt::AlignCenter, text);
        return image;
    }

    /// The font's glyphs of the text, 0 for each that is missing.
    static QList<quint32> glyphs(const QString &text, const QFont &font)
    {
        QTextLayout layout(text, font);
        layout.beginLayout();
        layout.createLine();
        layout.endLayout();
        QList<quint32> indexes;
        for (const QGlyphRun &run : layout.glyphRuns())
            indexes += run.glyphIndexes();
        return indexes;
    }
};

TEST_P(KeyGlyphs, AreAllDrawn)
{
    const QFont font = textFont(GetParam());
    const QImage nothing = drawn({}, font);
    const QImage box = drawn(noncharacter, font);
    for (const QChar sign : signs) {
        const QString text(sign);
        EXPECT_FALSE(glyphs(text, font).contains(0U)) << text.toStdString();
        EXPECT_NE(drawn(text, font), nothing) << text.toStdString();
        EXPECT_NE(drawn(text, font), box) << text.toStdString();
    }
}

TEST_P(KeyGlyphs, AreAllDifferent)
{
    const QFont font = textFont(GetParam());
    for (qsizetype i = 0; i < signs.size(); ++i) {
        for (qsizetype j = 0; j < i; ++j)
            EXPECT_NE(drawn(signs.mid(i, 1), font), drawn(signs.mid(j, 1), font)) << i << " and " << j;
    }
}

TEST_P(KeyGlyphs, AMissingOneIsDetected)
{
    EXPECT_TRUE(glyphs(noncharacter, textFont(GetParam())).contains(0U));
}

// The fonts of the recorder, of a row's subtitle and of a tooltip.
INSTANTIATE_TEST_SUITE_P(InEveryFontTheyAppearIn, KeyGlyphs,
                         testing::Values(TextStyle::size12SemiboldMono, TextStyle::size11,
                                         TextStyle::size13));

} // namespace
