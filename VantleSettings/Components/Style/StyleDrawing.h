#pragma once

#include <QSize>

class QPainter;
class QStyleOption;
class QStyleOptionButton;
class QStyleOptionComboBox;
class QStyleOptionMenuItem;
class QStyleOptionSlider;
class QWidget;

/// The drawing functions of ControlStyle, by control. Sizes include padding.
namespace StyleDrawing
{

QSize buttonSize(const QStyleOptionButton &option, const QSize &text, const QWidget *widget);
void drawButtonBevel(QPainter &painter, const QStyleOptionButton &option);
void drawButtonLabel(QPainter &painter, const QStyleOptionButton &option);

QSize pickerSize(const QStyleOptionComboBox &option, const QSize &text);
QRect pickerText(const QStyleOptionComboBox &option);
/// Where the pop-up opens, so that the texts of its entries are aligned with the picker's text.
QRect pickerPopup(const QStyleOption &option);
void drawPicker(QPainter &painter, const QStyleOptionComboBox &option);
void drawPickerLabel(QPainter &painter, const QStyleOptionComboBox &option);

/// The rounded panel under menus, pop-ups of pickers and tooltips.
void drawPanel(QPainter &painter, const QRect &rect, qreal radius);
constexpr int menuMargin = 5;
/// The width before an entry's text in a pop-up: margin, padding and check mark.
constexpr int entryInset = menuMargin + 10 + 14;
QSize menuItemSize(const QStyleOptionMenuItem &option);
/// `inset` keeps the highlight clear of the panel's sides where the panel itself leaves no margin.
void drawMenuItem(QPainter &painter, const QStyleOptionMenuItem &option, int inset);
void drawMenuBarItem(QPainter &painter, const QStyleOptionMenuItem &option);

/// The handle of an overlay scroll bar, with the opacity from `ScrollBarFade`.
void drawScrollBar(QPainter &painter, const QStyleOptionSlider &option, const QRect &handle,
                   const QWidget *bar);

} // namespace StyleDrawing
