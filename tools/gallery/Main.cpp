#include "Components/Style/Look.h"
#include "FontRegistration/FontRegistration.h"
#include "Gallery.h"
#include "Platform/Desktop/Appearance/FontRegistry.h"

#include <QApplication>
#include <QScrollArea>

int main(int argc, char **argv)
{
    QApplication application(argc, argv);
    FontRegistration::registerBundledFonts();
    FontRegistry::system().finish();
    installLook(application);
    QScrollArea window;
    window.setWindowTitle(QStringLiteral("Components"));
    window.setFrameShape(QFrame::NoFrame);
    window.setWidgetResizable(true);
    window.setWidget(makeGallery());
    window.resize(760, 900);
    window.show();
    return QApplication::exec();
}
