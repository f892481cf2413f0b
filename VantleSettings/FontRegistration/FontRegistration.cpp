#include "FontRegistration/FontRegistration.h"

#include "Foundation/Seam.h"
#include "Platform/Desktop/Appearance/FontRegistry.h"
#include "Platform/Files/Path.h"

#include <QFileInfo>

#include <utility>

using namespace Qt::StringLiterals;

namespace FontRegistration
{

QStringList names()
{
    return {u"JetBrainsMono-Regular"_s, u"JetBrainsMono-Medium"_s, u"JetBrainsMono-SemiBold"_s,
            u"JetBrainsMono-Bold"_s};
}

QStringList candidateFontDirectories(const Bundle &bundle)
{
    QStringList directories;
    if (bundle.resourceDirectory)
        directories << Path::appending(*bundle.resourceDirectory, u"Fonts"_s);
    if (bundle.executablePath)
        directories << Path::appending(Path::parent(*bundle.executablePath),
                                       u"Vantle_VantleSettings.bundle/Fonts"_s);
    directories << QStringLiteral(VANTLE_SOURCE_DIRECTORY "/Resources/Fonts");
    return directories;
}

void registerFonts(const QStringList &directories, FontRegistry &registry)
{
    QStringList files;
    for (const QString &name : names()) {
        for (const QString &directory : directories) {
            const QString file = Path::appending(directory, name + u".ttf"_s);
            if (QFileInfo::exists(file)) {
                files << file;
                break;
            }
        }
    }
    registry.add(files);
}

void registerBundledFonts()
{
    static bool hasRegistered = false;
    if (std::exchange(hasRegistered, true))
        return;
    registerFonts(candidateFontDirectories(Bundle::main()), Seam<FontRegistry>::current());
}

} // namespace FontRegistration
