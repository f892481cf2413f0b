#include "Components/Buttons.h"
#include "Components/Drawing/Painting.h"
#include "Components/Drawing/Tokens.h"
#include "Components/Style/StyleDrawing.h"
#include "Platform/Desktop/Appearance/Palette.h"

#include <QPainter>
#include <QStyle>
#include <QStyleOption>

#include <algorithm>
#include <array>

namespace
{

constexpr qreal disabledOpacity = 0.4;
constexpr int iconGap = 4;
constexpr int pickerSlack = 4;    ///< the combo box measures its text less exactly than the label
constexpr int chevronColumn = 22; ///< at the trailing end of a picker
constexpr int tightPadding = 8;   ///< before a text that would be elided otherwise
constexpr int tightColumn = 15;   ///< at the trailing end of a picker with such a text

QColor background(QStyle::State state)
{
    if (state & QStyle::State_Sunken)
        return Tokens::buttonPressed;
    if ((state & QStyle::State_MouseOver) && (state & QStyle::State_Enabled))
        return Tokens::buttonHover;
    return Tokens::buttonBackground;
}

void dimIfDisabled(QPainter &painter, const QStyleOption &option)
{
    if (!(option.state & QStyle::State_Enabled))
        painter.setOpacity(painter.opacity() * disabledOpacity);
}

bool isDefault(const QStyleOptionButton &option)
{
    return option.features & QStyleOptionButton::DefaultButton && option.state & QStyle::State_Enabled;
}

QColor accentBackground(QStyle::State state)
{
    if (state & QStyle::State_Sunken)
        return accentColor().darker(125);
    return state & QStyle::State_MouseOver ? accentColor().lighter(112) : accentColor();
}

/// The widths before and after a picker's text. They are smaller where the text would be elided otherwise.
struct PickerSides {
    int padding;
    int chevrons;
};

PickerSides pickerSides(const QStyleOptionComboBox &option)
{
    const int room = option.rect.width() - Tokens::smallButtonPadding - chevronColumn;
    if (option.fontMetrics.horizontalAdvance(option.currentText) < room)
        return {Tokens::smallButtonPadding, chevronColumn};
    return {tightPadding, tightColumn};
}

void drawChevrons(QPainter &painter, const QRectF &column)
{
    constexpr qreal halfWidth = 2.75;
    constexpr qreal height = 2.75;
    constexpr qreal gap = 1.75; // from the middle to a chevron's open side
    const QPointF middle = column.center();
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(textColor(TextColor::primary), 1.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    for (const qreal direction : {-1.0, 1.0}) {
        const std::array chevron{middle + QPointF(-halfWidth, direction * gap),
                                 middle + QPointF(0, direction * (gap + height)),
                                 middle + QPointF(halfWidth, direction * gap)};
        painter.drawPolyline(chevron.data(), int(chevron.size()));
    }
    painter.restore();
}

} // namespace

QSize StyleDrawing::buttonSize(const QStyleOptionButton &option, const QSize &text, const QWidget *widget)
{
    const auto *button = qobject_cast<const PushButton *>(widget);
    const bool small = button && button->buttonSize() == PushButton::Size::small;
    const int padding = small ? Tokens::smallButtonPadding : Tokens::largeButtonPadding;
    const int height = small ? Tokens::smallButtonHeight : Tokens::largeButtonHeight;
    const int icon = option.icon.isNull() ? 0 : option.iconSize.width() + iconGap;
    const QSize label = option.fontMetrics.size(Qt::TextShowMnemonic, option.text);
    return {std::max(label.width(), text.width() - icon) + icon + 2 * padding,
            std::max(height, label.height() + 6)};
}

void StyleDrawing::drawButtonBevel(QPainter &painter, const QStyleOptionButton &option)
{
    if (option.features & QStyleOptionButton::Flat)
        return;
    painter.save();
    dimIfDisabled(painter, option);
    const QColor color = isDefault(option) ? accentBackground(option.state) : background(option.state);
    fillShape(painter, continuousRectangle(option.rect, Tokens::buttonRadius), color);
    painter.restore();
}

void StyleDrawing::drawButtonLabel(QPainter &painter, const QStyleOptionButton &option)
{
    painter.save();
    dimIfDisabled(painter, option);
    painter.setPen(isDefault(option) ? QColor(Qt::white) : textColor(TextColor::primary));
    const int icon = option.icon.isNull() ? 0 : option.iconSize.width() + iconGap;
    const int text = option.fontMetrics.size(Qt::TextShowMnemonic, option.text).width();
    const QRect label = QStyle::alignedRect(option.direction, Qt::AlignCenter,
                                            QSize(icon + text, option.rect.height()), option.rect);
    if (icon > 0) {
        const QRect place =
            QStyle::alignedRect(option.direction, Qt::AlignLeft | Qt::AlignVCenter, option.iconSize, label);
        option.icon.paint(&painter, place);
    }
    const QRect textRect = QStyle::alignedRect(option.direction, Qt::AlignRight | Qt::AlignVCenter,
                                               QSize(text, label.height()), label);
    painter.drawText(textRect, Qt::AlignCenter | Qt::TextHideMnemonic, option.text);
    painter.restore();
}

QSize StyleDrawing::pickerSize(const QStyleOptionComboBox &option, const QSize &text)
{
    return {text.width() + pickerSlack + Tokens::smallButtonPadding + chevronColumn,
            std::max(Tokens::smallButtonHeight, option.fontMetrics.height() + 6)};
}

QRect StyleDrawing::pickerText(const QStyleOptionComboBox &option)
{
    const PickerSides sides = pickerSides(option);
    const QRect text = option.rect.adjusted(sides.padding, 0, -sides.chevrons, 0);
    return QStyle::visualRect(option.direction, option.rect, text);
}

QRect StyleDrawing::pickerPopup(const QStyleOption &option)
{
    const QRect popup = option.rect.adjusted(Tokens::smallButtonPadding - entryInset, 0, 0, 0);
    return QStyle::visualRect(option.direction, option.rect, popup);
}

void StyleDrawing::drawPicker(QPainter &painter, const QStyleOptionComboBox &option)
{
    painter.save();
    dimIfDisabled(painter, option);
    const QStyle::State pressed = option.state & (QStyle::State_On | QStyle::State_Sunken);
    const QStyle::State state = option.state | (pressed ? QStyle::State_Sunken : QStyle::State_None);
    fillShape(painter, continuousRectangle(option.rect, Tokens::buttonRadius), background(state));
    const int width = pickerSides(option).chevrons;
    const QRect column(option.rect.right() + 1 - width, option.rect.top(), width, option.rect.height());
    drawChevrons(painter, QStyle::visualRect(option.direction, option.rect, column));
    painter.restore();
}

void StyleDrawing::drawPickerLabel(QPainter &painter, const QStyleOptionComboBox &option)
{
    painter.save();
    dimIfDisabled(painter, option);
    const QRect text = pickerText(option);
    painter.setPen(textColor(TextColor::primary));
    painter.drawText(text, int(QStyle::visualAlignment(option.direction, Qt::AlignLeft) | Qt::AlignVCenter),
                     option.fontMetrics.elidedText(option.currentText, Qt::ElideMiddle, text.width()));
    painter.restore();
}
