#include "Components/Style/Look.h"

#include "Components/Drawing/Tokens.h"
#include "Components/Style/ControlStyle.h"
#include "Components/Style/FocusRing.h"
#include "Components/Style/SettingsStyle.h"
#include "Platform/Desktop/Appearance/BaseStyle.h"
#include "Platform/Desktop/Appearance/Palette.h"

#include <QApplication>
#include <QToolTip>

namespace
{

QStyle *makeStyle()
{
    if (systemDrawsControls())
        return new SettingsStyle;
    return new ControlStyle;
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
    // An editor's context menu would show shortcuts only for those items that the menu bar does not have.
    QCoreApplication::setAttribute(Qt::AA_DontShowShortcutsInContextMenus);
    adoptSystemFont();
    QApplication::setStyle(makeStyle());
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
