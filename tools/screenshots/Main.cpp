#include "Screenshots.h"

#include <QApplication>
#include <QDir>
#include <QTemporaryFile>

#include <cstdio>

using namespace Qt::StringLiterals;

namespace
{

/// Draws without a display, as if on the screen of a laptop: where pop-ups open depends on it.
bool useLaptopScreen(QTemporaryFile &screens)
{
    const bool written = screens.open() && screens.write(R"({ "screens": [ { "name": "laptop",
        "x": 0, "y": 0, "width": 1440, "height": 900, "logicalDpi": 96, "logicalBaseDpi": 96, "dpr": 1 } ] })") >
                                               0;
    screens.close();
    qputenv("QT_QPA_PLATFORM", "offscreen:configfile=" + screens.fileName().toUtf8());
    return written;
}

} // namespace

int main(int argc, char **argv)
{
    const bool storedOnly = argc == 3 && qstrcmp(argv[1], "--stored") == 0;
    const bool folderNamed = argc > 1 && argv[argc - 1][0] != '-';
    if (!folderNamed || (argc != 2 && !storedOnly)) {
        std::fputs("usage: screenshots [--stored] FOLDER\n"
                   "Draws every picture into the folder, or only those that docs/screenshots keeps.\n",
                   stderr);
        return 2;
    }
    QTemporaryFile screens;
    if (!useLaptopScreen(screens)) {
        std::fputs("screenshots: no temporary file can be made\n", stderr);
        return 1;
    }
    QApplication application(argc, argv);
    installPinnedLook(application);
    const QDir folder(QFile::decodeName(argv[argc - 1]));
    if (!folder.mkpath(u"."_s)) {
        std::fputs("screenshots: the folder cannot be made\n", stderr);
        return 1;
    }
    for (const Screenshot &screenshot : allScreenshots()) {
        if (storedOnly && !screenshot.stored)
            continue;
        for (const int scale : {1, 2}) {
            const QString file = folder.filePath(fileName(screenshot, scale));
            if (!rendered(screenshot, scale).save(file)) {
                std::fprintf(stderr, "screenshots: cannot write %s\n", qPrintable(file));
                return 1;
            }
        }
    }
    return 0;
}
