#include "SettingsWindow/Sections/MissingLabel.h"

#include "Components/Drawing/Painting.h"

#include <QPainter>

using namespace Qt::StringLiterals;

namespace
{
constexpr int padding = 6;
constexpr int paddingVertical = 2;
constexpr float fillOpacity = 0.18F;
} // namespace

MissingLabel::MissingLabel(QWidget *parent)
    : Label(u"missing"_s, TextStyle::size10, TextColor::primary, parent)
{
    setContentsMargins(padding, paddingVertical, padding, paddingVertical);
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
}

void MissingLabel::paintEvent(QPaintEvent *event)
{
    QPainter painter(this);
    QColor background = textColor(TextColor::secondary);
    background.setAlphaF(background.alphaF() * fillOpacity);
    fill(painter, capsule(rect()), background);
    painter.end();
    Label::paintEvent(event);
}
