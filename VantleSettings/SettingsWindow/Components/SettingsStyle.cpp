#include "SettingsWindow/Components/SettingsStyle.h"

#include "Platform/AccessibleRole.h"
#include "Platform/BaseStyle.h"
#include "Platform/Palette.h"
#include "SettingsWindow/Components/Tokens.h"

#include <QApplication>
#include <QPalette>
#include <QToolTip>

void installLook(QApplication &application)
{
    application.setStyle(new SettingsStyle);
    application.setPalette(application.style()->standardPalette());
    QApplication::setFont(textFont(TextStyle::size13));
    QToolTip::setFont(textFont(TextStyle::size11));
}

SettingsStyle::SettingsStyle() : QProxyStyle(makeBaseStyle())
{
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
