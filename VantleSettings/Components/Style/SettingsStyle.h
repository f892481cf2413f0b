#pragma once

#include <QProxyStyle>

/// The system's style with the window's palette, and with FocusRing instead of its own focus frame.
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
    void drawPrimitive(PrimitiveElement element, const QStyleOption *option, QPainter *painter,
                       const QWidget *widget) const override;
};
