#include "Platform/Desktop/Appearance/BaseStyle.h"

#include <QGuiApplication>
#include <QStyleFactory>
#include <QStyleHints>

QStyle *makeBaseStyle()
{
#if QT_VERSION >= QT_VERSION_CHECK(6, 8, 0)
    // For what the toolkit draws by itself: frames under Wayland, and dialogs that are the desktop's own.
    QGuiApplication::styleHints()->setColorScheme(Qt::ColorScheme::Dark);
#endif
    return QStyleFactory::create(QStringLiteral("fusion"));
}

bool systemDrawsControls()
{
    return false;
}
