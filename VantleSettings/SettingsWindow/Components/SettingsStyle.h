#pragma once

#include <QProxyStyle>

class QApplication;

/// Gives the application its look: style, dark palette, fonts and tooltips.
/// Directly after the application is made, before any window.
void installLook(QApplication &application);

/// Draws the standard controls the way the window wants them.
class SettingsStyle : public QProxyStyle
{
    Q_OBJECT

public:
    SettingsStyle();

    QPalette standardPalette() const override;
};
