#include "SettingsWindow/Sections/AboutHero.h"

#include "Components/Drawing/Painting.h"
#include "Components/Drawing/Tokens.h"
#include "Components/Text/Label.h"
#include "Platform/Desktop/Appearance/Palette.h"
#include "Platform/Desktop/Appearance/Symbol.h"

#include <QPainter>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace
{

constexpr int tileSize = 54;
constexpr int tileRadius = 12;
constexpr int symbolPointSize = 26;
constexpr int lineSpacing = 2;
constexpr int versionExtraSpacing = 2;

} // namespace

AboutHero::AboutHero(const QString &version, QWidget *parent) : QWidget(parent)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(Tokens::rowPadding + tileSize + Tokens::rowSpacing, Tokens::rowPadding,
                               Tokens::rowPadding, Tokens::rowPadding);
    layout->setSpacing(lineSpacing);
    layout->addWidget(new WrappedLabel(u"Vantle"_s, TextStyle::size15Semibold));
    layout->addWidget(new WrappedLabel(u"Liquid-Glass notification overlays for Claude Code."_s,
                                       TextStyle::size12, TextColor::secondary));
    layout->addSpacing(versionExtraSpacing);
    layout->addWidget(
        new WrappedLabel(u"Settings helper · version "_s + version, TextStyle::size11, TextColor::secondary));
}

void AboutHero::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const qreal left =
        layoutDirection() == Qt::RightToLeft ? width() - Tokens::rowPadding - tileSize : Tokens::rowPadding;
    const QRectF tile(left, (height() - tileSize) / 2.0, tileSize, tileSize);
    fill(painter, continuousRectangle(tile, tileRadius), tintGradient(tile, color(SystemColor::indigo)));
    drawSymbol(painter, {u"bell.badge.fill"_s, symbolPointSize, QFont::DemiBold}, tile, Qt::white);
}
