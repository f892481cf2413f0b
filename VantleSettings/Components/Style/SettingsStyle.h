#pragma once

#include <QProxyStyle>

class QApplication;

/// Gives the application its look: style, dark palette, fonts, tooltips and the focus ring. Directly after
/// the application is made, before any window.
void installLook(QApplication &application);

/// Keeps the look in step with the system's accent colour, text size, contrast and motion from here on. The
/// program does; tests and pictures do not, so that they look the same everywhere.
void followAppearance();

/// Draws the standard controls the way the window wants them, where the system's own style does not.
class SettingsStyle : public QProxyStyle
{
    Q_OBJECT

public:
    SettingsStyle();

    using QProxyStyle::polish;
    void polish(QWidget *widget) override;
    QPalette standardPalette() const override;
    QIcon standardIcon(StandardPixmap icon, const QStyleOption *option, const QWidget *widget) const override;
    int pixelMetric(PixelMetric metric, const QStyleOption *option, const QWidget *widget) const override;
    int styleHint(StyleHint hint, const QStyleOption *option, const QWidget *widget,
                  QStyleHintReturn *data) const override;
    QSize sizeFromContents(ContentsType type, const QStyleOption *option, const QSize &size,
                           const QWidget *widget) const override;
    QRect subControlRect(ComplexControl control, const QStyleOptionComplex *option, SubControl subControl,
                         const QWidget *widget) const override;
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
    void drawControl(ControlElement element, const QStyleOption *option, QPainter *painter,
                     const QWidget *widget) const override;
    void drawComplexControl(ComplexControl control, const QStyleOptionComplex *option, QPainter *painter,
                            const QWidget *widget) const override;

private:
    bool m_native; ///< the system's style draws the controls; ours only adds what it lacks
};
