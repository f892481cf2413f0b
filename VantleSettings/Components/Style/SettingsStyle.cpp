#include "Components/Style/SettingsStyle.h"

#include "Components/Drawing/Tokens.h"
#include "Platform/Desktop/Appearance/BaseStyle.h"
#include "Platform/Desktop/Appearance/Palette.h"
#include "Platform/Window/WindowChrome.h"

#include <QWidget>

SettingsStyle::SettingsStyle() : QProxyStyle(makeBaseStyle())
{
}

void SettingsStyle::polish(QWidget *widget)
{
    QProxyStyle::polish(widget);
    extendUnderTitleBar(*widget);
    widget->setAttribute(Qt::WA_MacShowFocusRect, false); // FocusRing draws it on every system
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

QIcon SettingsStyle::standardIcon(StandardPixmap icon, const QStyleOption *option,
                                  const QWidget *widget) const
{
    // The menu bar asks for the icon of its extension button, which it never shows here. Loading a first icon
    // makes the toolkit load the plug-ins of all image formats.
    if (icon == SP_ToolBarHorizontalExtensionButton)
        return {};
    return QProxyStyle::standardIcon(icon, option, widget);
}

int SettingsStyle::pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const
{
    if (metric == PM_FocusFrameHMargin || metric == PM_FocusFrameVMargin)
        return Tokens::focusRingWidth;
    return QProxyStyle::pixelMetric(metric, option, widget);
}

int SettingsStyle::styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                             QStyleHintReturn *data) const
{
    if (hint == SH_FocusFrame_AboveWidget) // the ring is a child of the page, so no row clips it
        return 1;
    if (hint == SH_FocusFrame_Mask)
        return 0;
    return QProxyStyle::styleHint(hint, option, widget, data);
}

void SettingsStyle::drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                                  const QWidget *widget) const
{
    if (element != PE_FrameFocusRect) // FocusRing draws it, outside the control
        QProxyStyle::drawPrimitive(element, option, painter, widget);
}
