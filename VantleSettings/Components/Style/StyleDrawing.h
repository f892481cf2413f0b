#pragma once

#include <QSize>

class QPainter;
class QStyleOption;
class QStyleOptionButton;
class QStyleOptionComboBox;
class QStyleOptionMenuItem;
class QStyleOptionSlider;
class QWidget;

/// What ControlStyle draws, control by control. Sizes include their padding.
namespace StyleDrawing
{

QSize buttonSize(const QStyleOptionButton &option, const QSize &text, const QWidget *widget);
void drawButtonBevel(QPainter &painter, const QStyleOptionButton &option);
void drawButtonLabel(QPainter &painter, const QStyleOptionButton &option);

QSize pickerSize(const QStyleOptionComboBox &option, const QSize &text);
QRect pickerText(const QStyleOptionComboBox &option);
/// Where the pop-up opens: its entries stand over the picker's text.
QRect pickerPopup(const QStyleOption &option);
void drawPicker(QPainter &painter, const QStyleOptionComboBox &option);
void drawPickerLabel(QPainter &painter, const QStyleOptionComboBox &option);

/// The rounded panel under menus, pop-ups of pickers and tooltips.
void drawPanel(QPainter &painter, const QRect &rect, qreal radius);
constexpr int menuMargin = 5;
/// What stands before an entry's text in a pop-up.
constexpr int entryInset = menuMargin + 10 + 14;
QSize menuItemSize(const QStyleOptionMenuItem &option);
/// `inset` keeps the highlight clear of the panel's sides where the panel itself leaves no margin.
void drawMenuItem(QPainter &painter, const QStyleOptionMenuItem &option, int inset);
void drawMenuBarItem(QPainter &painter, const QStyleOptionMenuItem &option);

/// The handle of an overlay scroll bar, at the opacity that `ScrollBarFade` says.
void drawScrollBar(QPainter &painter, const QStyleOptionSlider &option, const QRect &handle,
                   const QWidget *bar);

} // namespace StyleDrawing
