#include "Components/Drawing/Tokens.h"

#include "Platform/Desktop/Appearance/Palette.h"
#include "Platform/Desktop/Appearance/SystemFont.h"

#include <QApplication>
#include <QVariant>
#include <QWidget>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

constexpr auto styleProperty = "vantleTextStyle";

struct Face {
    int size;
    QFont::Weight weight;
};

Face face(TextStyle style)
{
    switch (style) {
    case TextStyle::size10:
        return {10, QFont::Normal};
    case TextStyle::size11:
        return {11, QFont::Normal};
    case TextStyle::size11Semibold:
    case TextStyle::groupHeader:
        return {11, QFont::DemiBold};
    case TextStyle::size12:
        return {12, QFont::Normal};
    case TextStyle::size12Medium:
        return {12, QFont::Medium};
    case TextStyle::size12Semibold:
    case TextStyle::size12SemiboldMono:
        return {12, QFont::DemiBold};
    case TextStyle::size13:
        return {13, QFont::Normal};
    case TextStyle::size13Medium:
        return {13, QFont::Medium};
    case TextStyle::size13Semibold:
        return {13, QFont::DemiBold};
    case TextStyle::size15Semibold:
        return {15, QFont::DemiBold};
    case TextStyle::size22Semibold:
        return {22, QFont::DemiBold};
    }
    Q_UNREACHABLE();
}

struct SystemText {
    QFont font;
    qreal scale = 1;
};

SystemText &systemText()
{
    static SystemText text;
    return text;
}

QColor white(qreal opacity)
{
    return QColor::fromRgbF(1, 1, 1, static_cast<float>(opacity));
}

} // namespace

QColor Tokens::separator()
{
    return white(increasedContrast() ? 0.3 : 0.12);
}

void adoptSystemFont()
{
    systemText() = {systemFont(), systemTextScale()};
}

QFont textFont(TextStyle style)
{
    const Face wanted = face(style);
    QFont font = systemText().font;
    if (style == TextStyle::size12SemiboldMono)
        font.setFamily(u"JetBrains Mono"_s); // with a second family the toolkit would look up all fallbacks
    if (style == TextStyle::groupHeader)
        font.setLetterSpacing(QFont::AbsoluteSpacing, 0.4);
    font.setPixelSize(scaledWithText(wanted.size));
    font.setWeight(wanted.weight);
    return font;
}

qreal textScale()
{
    return std::max(1.0, systemText().scale * textSizeFactor());
}

int scaledWithText(int points)
{
    return qRound(points * textScale());
}

void setTextStyle(QWidget &widget, TextStyle style)
{
    widget.setProperty(styleProperty, int(style));
    widget.setFont(textFont(style));
}

void refreshTextStyles()
{
    for (QWidget *widget : QApplication::allWidgets()) {
        const QVariant style = widget->property(styleProperty);
        if (style.isValid())
            widget->setFont(textFont(TextStyle(style.toInt())));
    }
}

QColor textColor(TextColor level)
{
    const qreal secondary = increasedContrast() ? 0.75 : 0.58;
    switch (level) {
    case TextColor::primary:
        return white(0.92);
    case TextColor::primary80:
        return white(0.92 * 0.8);
    case TextColor::secondary:
        return white(secondary);
    case TextColor::secondary70:
        return white(secondary * 0.7);
    case TextColor::tertiary:
        return white(0.32);
    case TextColor::white:
        return Qt::white;
    case TextColor::accent:
        return accentColor();
    }
    Q_UNREACHABLE();
}
