#pragma once

#include <QSize>

class QPainter;
class QStyleOption;
class QStyleOptionButton;
class QStyleOptionComboBox;
class QStyleOptionMenuItem;
class QStyleOptionSlider;
class QWidget;

/// What SettingsStyle draws, control by control. Sizes include their padding.
namespace StyleDrawing
{

QSize buttonSize(const QStyleOptionButton &option, const QSize &text, const QWidget *button);
void drawButtonBevel(QPainter &painter, const QStyleOptionButton &option);
void drawButtonLabel(QPainter &painter, const QStyleOptionButton &option);

QSize pickerSize(const QStyleOptionComboBox &option, const QSize &text);
QRect pickerText(const QStyleOptionComboBox &option);
void drawPicker(QPainter &painter, const QStyleOptionComboBox &option);
void drawPickerLabel(QPainter &painter, const QStyleOptionComboBox &option);

/// The field of a text editor.
void drawEditorFrame(QPainter &painter, const QRect &rect);

/// The rounded panel under menus, pop-ups of pickers and tooltips.
void drawPanel(QPainter &painter, const QRect &rect, qreal radius);
QSize menuItemSize(const QStyleOptionMenuItem &option);
void drawMenuItem(QPainter &painter, const QStyleOptionMenuItem &option);
void drawMenuBarItem(QPainter &painter, const QStyleOptionMenuItem &option);

/// The handle of an overlay scroll bar, at the opacity that `ScrollBarFade` says.
void drawScrollBar(QPainter &painter, const QStyleOptionSlider &option, const QRect &handle,
                   const QWidget *bar);

} // namespace StyleDrawing
