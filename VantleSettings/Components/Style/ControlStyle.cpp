#include "Components/Style/ControlStyle.h"

#include "Components/Drawing/Tokens.h"
#include "Components/Style/ScrollBarFade.h"
#include "Components/Style/StyleDrawing.h"
#include "Platform/Window/WindowChrome.h"

#include <QComboBox>
#include <QMenu>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QStyleOption>

namespace
{

constexpr int menuRadius = 9;
constexpr int menuBarItemPadding = 8;
constexpr int scrollBarExtent = Tokens::scrollBarWidth + 4;

/// A panel is a window of its own. Where windows cannot be translucent, rounded corners would be black, so
/// they are square.
void drawPanel(QPainter &painter, const QRect &rect, qreal radius)
{
    StyleDrawing::drawPanel(painter, rect, windowsAreComposited() ? radius : 0);
}

} // namespace

void ControlStyle::polish(QWidget *widget)
{
    SettingsStyle::polish(widget);
    if (auto *bar = qobject_cast<QScrollBar *>(widget)) {
        bar->setAttribute(Qt::WA_OpaquePaintEvent, false);
        if (!bar->findChild<ScrollBarFade *>({}, Qt::FindDirectChildrenOnly))
            new ScrollBarFade(bar);
    } else if (qobject_cast<QMenu *>(widget) || widget->inherits("QComboBoxPrivateContainer") ||
               widget->inherits("QTipLabel")) {
        widget->setAttribute(Qt::WA_TranslucentBackground);
    } else if (widget->inherits("QComboBoxListView")) {
        QPalette palette = widget->palette();
        palette.setColor(QPalette::Window, Tokens::menuBackground); // under each entry
        widget->setPalette(palette);
        static_cast<QAbstractScrollArea *>(widget)->viewport()->setAutoFillBackground(false);
    } else if (auto *editor = qobject_cast<QPlainTextEdit *>(widget)) {
        editor->viewport()->setAutoFillBackground(false); // the frame around the editor draws the background
    }
}

int ControlStyle::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    switch (metric) {
    case PM_ScrollBarExtent:
    case PM_ScrollView_ScrollBarOverlap:
        return scrollBarExtent;
    case PM_ScrollBarSliderMin:
        return 30;
    case PM_ScrollView_ScrollBarSpacing:
    case PM_MenuPanelWidth:
    case PM_MenuBarPanelWidth:
    case PM_MenuBarVMargin:
    case PM_ButtonShiftHorizontal:
    case PM_ButtonShiftVertical:
    case PM_SubMenuOverlap:
        return 0;
    case PM_MenuHMargin:
    case PM_MenuVMargin:
        return StyleDrawing::menuMargin;
    case PM_MenuBarHMargin:
        return 6;
    case PM_MenuBarItemSpacing:
        return 2;
    case PM_ToolTipLabelFrameWidth:
        return 6;
    default:
        return SettingsStyle::pixelMetric(metric, option, widget);
    }
}

int ControlStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                            QStyleHintReturn *data) const
{
    switch (hint) {
    case SH_ComboBox_Popup:
    case SH_Menu_MouseTracking:
    case SH_MenuBar_MouseTracking:
        return 1;
    case SH_ToolTip_Mask:
    case SH_Menu_Mask:
    case SH_UnderlineShortcut:
    case SH_EtchDisabledText:
    case SH_DialogButtonBox_ButtonsHaveIcons:
        return 0;
    case SH_ToolTipLabel_Opacity:
        return 255;
    default:
        return SettingsStyle::styleHint(hint, option, widget, data);
    }
}

QSize ControlStyle::sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                                     const QWidget *widget) const
{
    if (type == CT_PushButton) {
        if (const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option))
            return StyleDrawing::buttonSize(*button, size, widget);
    } else if (type == CT_ComboBox) {
        if (const auto *picker = qstyleoption_cast<const QStyleOptionComboBox *>(option))
            return StyleDrawing::pickerSize(*picker, size);
    } else if (type == CT_MenuItem) {
        if (const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option))
            return StyleDrawing::menuItemSize(*item);
    } else if (type == CT_MenuBarItem) {
        return {size.width() + 2 * menuBarItemPadding, size.height() + menuBarItemPadding};
    }
    return SettingsStyle::sizeFromContents(type, option, size, widget);
}

QRect ControlStyle::subControlRect(ComplexControl control, const QStyleOptionComplex *option,
                                   SubControl subControl, const QWidget *widget) const
{
    if (control == CC_ComboBox && subControl == SC_ComboBoxEditField) {
        if (const auto *picker = qstyleoption_cast<const QStyleOptionComboBox *>(option))
            return StyleDrawing::pickerText(*picker);
    }
    if (control == CC_ComboBox && subControl == SC_ComboBoxListBoxPopup)
        return StyleDrawing::pickerPopup(*option);
    if (control == CC_ScrollBar) {
        if (subControl == SC_ScrollBarAddLine || subControl == SC_ScrollBarSubLine)
            return {};
        if (subControl == SC_ScrollBarGroove)
            return option->rect;
    }
    return SettingsStyle::subControlRect(control, option, subControl, widget);
}

void ControlStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                                 const QWidget *widget) const
{
    switch (element) {
    case PE_PanelMenu:
        return drawPanel(*painter, option->rect, menuRadius);
    case PE_PanelTipLabel:
        return drawPanel(*painter, option->rect, Tokens::toolTipRadius);
    case PE_FrameMenu:
    case PE_PanelMenuBar:
        return;
    default:
        return SettingsStyle::drawPrimitive(element, option, painter, widget);
    }
}

void ControlStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                               const QWidget *widget) const
{
    const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
    const auto *picker = qstyleoption_cast<const QStyleOptionComboBox *>(option);
    const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    if (element == CE_PushButtonBevel && button)
        StyleDrawing::drawButtonBevel(*painter, *button);
    else if (element == CE_PushButtonLabel && button)
        StyleDrawing::drawButtonLabel(*painter, *button);
    else if (element == CE_ComboBoxLabel && picker)
        StyleDrawing::drawPickerLabel(*painter, *picker);
    else if (element == CE_MenuItem && item)
        StyleDrawing::drawMenuItem(*painter, *item,
                                   qobject_cast<const QComboBox *>(widget) ? StyleDrawing::menuMargin : 0);
    else if (element == CE_MenuBarItem && item)
        StyleDrawing::drawMenuBarItem(*painter, *item);
    else if (element == CE_MenuEmptyArea || element == CE_MenuBarEmptyArea)
        return; // the panel, or the window, is drawn already
    else
        SettingsStyle::drawControl(element, option, painter, widget);
}

void ControlStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                      QPainter *painter, const QWidget *widget) const
{
    const auto *picker = qstyleoption_cast<const QStyleOptionComboBox *>(option);
    const auto *bar = qstyleoption_cast<const QStyleOptionSlider *>(option);
    if (control == CC_ComboBox && picker)
        StyleDrawing::drawPicker(*painter, *picker);
    else if (control == CC_ScrollBar && bar)
        StyleDrawing::drawScrollBar(*painter, *bar,
                                    subControlRect(CC_ScrollBar, option, SC_ScrollBarSlider, widget), widget);
    else
        SettingsStyle::drawComplexControl(control, option, painter, widget);
}
