#include "Screenshots.h"

#include <QApplication>
#include <QDir>

#include <cstdio>

using namespace Qt::StringLiterals;

int main(int argc, char **argv)
{
    if (argc != 2) {
        std::fputs("usage: screenshots FOLDER\n", stderr);
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    QApplication application(argc, argv);
    installPinnedLook(application);
    const QDir folder(QFile::decodeName(argv[1]));
    if (!folder.mkpath(u"."_s)) {
        std::fputs("screenshots: the folder cannot be made\n", stderr);
        return 1;
    }
    for (const Screenshot &screenshot : allScreenshots()) {
        for (const int scale : {1, 2}) {
            const QString name = scale == 1 ? screenshot.name : screenshot.name + u"@2x"_s;
            const QString file = folder.filePath(name + u".png"_s);
            if (!rendered(screenshot, scale).save(file)) {
                std::fprintf(stderr, "screenshots: cannot write %s\n", qPrintable(file));
                return 1;
            }
            std::printf("%s\n", qPrintable(file));
        }
    }
    return 0;
}
