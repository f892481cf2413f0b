#include "Components/Style/SettingsStyle.h"

#include "Components/Drawing/Tokens.h"
#include "Components/Style/FocusRing.h"
#include "Components/Style/ScrollBarFade.h"
#include "Components/Style/StyleDrawing.h"
#include "Platform/Desktop/Appearance/BaseStyle.h"
#include "Platform/Desktop/Appearance/Palette.h"
#include "Platform/Window/WindowChrome.h"

#include <QAbstractScrollArea>
#include <QApplication>
#include <QComboBox>
#include <QMenu>
#include <QPlainTextEdit>
#include <QScrollBar>
#include <QStyleOption>
#include <QToolTip>

namespace
{

constexpr int menuRadius = 9;
constexpr int menuBarItemPadding = 8;
constexpr int scrollBarExtent = Tokens::scrollBarWidth + 4;

/// The rounded corners of a window of its own are black where it cannot be seen through: square ones, then.
void drawPanel(QPainter &painter, const QRect &rect, qreal radius)
{
    StyleDrawing::drawPanel(painter, rect, windowsAreComposited() ? radius : 0);
}

void usePalette()
{
    QPalette palette = QApplication::style()->standardPalette();
    QApplication::setPalette(palette);
    QToolTip::setPalette(palette);
    palette.setColor(QPalette::Window, Tokens::cardBackground); // dialogs stand out from the window
    QApplication::setPalette(palette, "QDialog");
}

void useFonts()
{
    QApplication::setFont(textFont(TextStyle::size13));
    QToolTip::setFont(textFont(TextStyle::size11));
    refreshTextStyles();
}

} // namespace

void installLook(QApplication &application)
{
    // An editor's own menu would show the keys of those items only that the menu bar does not have.
    QCoreApplication::setAttribute(Qt::AA_DontShowShortcutsInContextMenus);
    adoptSystemFont();
    QApplication::setStyle(new SettingsStyle);
    usePalette();
    useFonts();
    if (!application.findChild<FocusRing *>())
        new FocusRing(application);
}

void followAppearance()
{
    watchAppearance([] {
        usePalette();
        if (QApplication::font().pixelSize() != textFont(TextStyle::size13).pixelSize())
            useFonts();
        for (QWidget *widget : QApplication::allWidgets())
            widget->update();
    });
}

SettingsStyle::SettingsStyle() : QProxyStyle(makeBaseStyle()), m_native(systemDrawsControls())
{
}

void SettingsStyle::polish(QWidget *widget)
{
    QProxyStyle::polish(widget);
    extendUnderTitleBar(*widget);
    widget->setAttribute(Qt::WA_MacShowFocusRect, false); // the ring is ours, on every system
    if (m_native)
        return;
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
        editor->viewport()->setAutoFillBackground(false); // the frame is the background
    }
}

QIcon SettingsStyle::standardIcon(StandardPixmap icon, const QStyleOption *option,
                                  const QWidget *widget) const
{
    // The menu bar asks for the mark of a bar too long for its window, which it never is here, and with the
    // first icon the toolkit loads the readers of every picture format.
    if (icon == SP_ToolBarHorizontalExtensionButton)
        return {};
    return QProxyStyle::standardIcon(icon, option, widget);
}

QPalette SettingsStyle::standardPalette() const
{
    const QColor text = textColor(TextColor::primary);
    const QColor faint = textColor(TextColor::tertiary);
    QPalette palette(text, Tokens::buttonBackground, Tokens::buttonHover, Tokens::windowBackground,
                     Tokens::separator(), text, Qt::white, Tokens::cardBackground, Tokens::windowBackground);
    palette.setColor(QPalette::Highlight, accentColor());
    palette.setColor(QPalette::HighlightedText, Qt::white);
    palette.setColor(QPalette::Link, accentColor());
    palette.setColor(QPalette::LinkVisited, accentColor());
    palette.setColor(QPalette::PlaceholderText, faint);
    palette.setColor(QPalette::ToolTipBase, Tokens::toolTipBackground);
    palette.setColor(QPalette::ToolTipText, text);
    for (const QPalette::ColorRole role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText})
        palette.setColor(QPalette::Disabled, role, faint);
    return palette;
}

int SettingsStyle::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    if (metric == PM_FocusFrameHMargin || metric == PM_FocusFrameVMargin)
        return Tokens::focusRingWidth;
    if (m_native)
        return QProxyStyle::pixelMetric(metric, option, widget);
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
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
}

int SettingsStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                             QStyleHintReturn *data) const
{
    if (hint == SH_FocusFrame_AboveWidget) // one ring for the page, which no row cuts off
        return 1;
    if (hint == SH_FocusFrame_Mask)
        return 0;
    if (m_native)
        return QProxyStyle::styleHint(hint, option, widget, data);
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
        return QProxyStyle::styleHint(hint, option, widget, data);
    }
}

QSize SettingsStyle::sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                                      const QWidget *widget) const
{
    if (m_native)
        return QProxyStyle::sizeFromContents(type, option, size, widget);
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
    return QProxyStyle::sizeFromContents(type, option, size, widget);
}

QRect SettingsStyle::subControlRect(ComplexControl control, const QStyleOptionComplex *option,
                                    SubControl subControl, const QWidget *widget) const
{
    if (!m_native && control == CC_ComboBox && subControl == SC_ComboBoxEditField) {
        if (const auto *picker = qstyleoption_cast<const QStyleOptionComboBox *>(option))
            return StyleDrawing::pickerText(*picker);
    }
    if (!m_native && control == CC_ComboBox && subControl == SC_ComboBoxListBoxPopup)
        return StyleDrawing::pickerPopup(*option);
    if (!m_native && control == CC_ScrollBar) {
        if (subControl == SC_ScrollBarAddLine || subControl == SC_ScrollBarSubLine)
            return {};
        if (subControl == SC_ScrollBarGroove)
            return option->rect;
    }
    return QProxyStyle::subControlRect(control, option, subControl, widget);
}

void SettingsStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                                  const QWidget *widget) const
{
    if (element == PE_FrameFocusRect) // the ring stands outside the control
        return;
    if (m_native)
        return QProxyStyle::drawPrimitive(element, option, painter, widget);
    switch (element) {
    case PE_PanelMenu:
        return drawPanel(*painter, option->rect, menuRadius);
    case PE_PanelTipLabel:
        return drawPanel(*painter, option->rect, Tokens::toolTipRadius);
    case PE_FrameMenu:
    case PE_PanelMenuBar:
        return;
    default:
        return QProxyStyle::drawPrimitive(element, option, painter, widget);
    }
}

void SettingsStyle::drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                                const QWidget *widget) const
{
    const auto *button = qstyleoption_cast<const QStyleOptionButton *>(option);
    const auto *picker = qstyleoption_cast<const QStyleOptionComboBox *>(option);
    const auto *item = qstyleoption_cast<const QStyleOptionMenuItem *>(option);
    if (m_native)
        return QProxyStyle::drawControl(element, option, painter, widget);
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
        QProxyStyle::drawControl(element, option, painter, widget);
}

void SettingsStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex *option,
                                       QPainter *painter, const QWidget *widget) const
{
    const auto *picker = qstyleoption_cast<const QStyleOptionComboBox *>(option);
    const auto *bar = qstyleoption_cast<const QStyleOptionSlider *>(option);
    if (!m_native && control == CC_ComboBox && picker)
        StyleDrawing::drawPicker(*painter, *picker);
    else if (!m_native && control == CC_ScrollBar && bar)
        StyleDrawing::drawScrollBar(*painter, *bar,
                                    subControlRect(CC_ScrollBar, option, SC_ScrollBarSlider, widget), widget);
    else
        QProxyStyle::drawComplexControl(control, option, painter, widget);
}
