#include "SettingsWindow/DetailHero.h"

#include "Components/Drawing/Painting.h"
#include "Components/Drawing/Tokens.h"
#include "Components/Text/Label.h"
#include "Foundation/KeyNames.h"
#include "Platform/Desktop/Appearance/Palette.h"
#include "Platform/Desktop/Appearance/Symbol.h"
#include "Platform/Window/Accessibility/AccessibleRole.h"

#include <QPainter>
#include <QVBoxLayout>

#include <cmath>
#include <numbers>

namespace
{

constexpr int tileSize = 74;
constexpr int symbolPointSize = 34;
constexpr int topPadding = 24 + 8; ///< of the page and of the heading; the tile's shadow is in both
constexpr int bottomPadding = 4;
constexpr int spacing = 12;
constexpr int subtitleMaximumWidth = 480;
constexpr qreal shadowRadius = 10;
constexpr qreal shadowOffset = 4;
constexpr qreal shadowOpacity = 0.35;

/// Draws the shadow of a disc. As after a Gaussian blur, its edge follows the integral of a bell curve.
void drawShadow(QPainter &painter, const QRectF &disc, QColor color)
{
    const qreal radius = disc.width() / 2;
    const qreal reach = radius + 2.5 * shadowRadius;
    QRadialGradient gradient(disc.center(), reach);
    constexpr int steps = 24;
    for (int i = 0; i <= steps; ++i) {
        const qreal position = qreal(i) / steps;
        const qreal beyondEdge = (position * reach - radius) / shadowRadius;
        color.setAlphaF(
            float(i == steps ? 0 : shadowOpacity * std::erfc(beyondEdge / std::numbers::sqrt2) / 2));
        gradient.setColorAt(position, color);
    }
    QRectF bounds(0, 0, 2 * reach, 2 * reach);
    bounds.moveCenter(disc.center());
    painter.fillRect(bounds, gradient);
}

} // namespace

DetailHero::DetailHero(SettingsSection section, QWidget *parent) : QWidget(parent), m_section(section)
{
    auto *title = new Label(rawValue(section), TextStyle::size22Semibold);
    setAccessibleRole(title, QAccessible::Heading);
    auto *purpose = new WrappedLabel(subtitle(section), TextStyle::size13, TextColor::secondary,
                                     WrappedLabel::Lines::balancedCentred);
    purpose->setAccessibleName(withKeyNames(subtitle(section)));
    purpose->setMaximumWidth(subtitleMaximumWidth);
    auto *centred = new QHBoxLayout;
    centred->addStretch(1);
    centred->addWidget(purpose, subtitleMaximumWidth);
    centred->addStretch(1);

    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, topPadding + tileSize + spacing, 0, bottomPadding);
    layout->setSpacing(spacing);
    layout->addWidget(title, 0, Qt::AlignHCenter);
    layout->addLayout(centred);
}

void DetailHero::paintEvent(QPaintEvent *)
{
    QPainter painter(this);
    const QRectF tile((width() - tileSize) / 2.0, topPadding, tileSize, tileSize);
    const QColor tint = systemColor(::tint(m_section));
    drawShadow(painter, tile.translated(0, shadowOffset), tint);
    QPainterPath circle;
    circle.addEllipse(tile);
    fillShape(painter, circle, tintGradient(tile, tint));
    drawSymbol(painter, {symbol(m_section), symbolPointSize, QFont::DemiBold}, tile, Qt::white);
}
