#include "Platform/Files/Bundle.h"

#include "Platform/Files/Path.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

Bundle installedBundle(const QString &executablePath)
{
    if (executablePath.isEmpty())
        return {};
    Bundle bundle{.executablePath = executablePath, .resourceDirectory = {}, .version = {}};
    const QString resources = QDir::cleanPath(
        Path::appending(Path::parent(executablePath), QStringLiteral(VANTLE_DATA_FROM_EXECUTABLE)));
    if (!QDir(resources).exists())
        return bundle;
    bundle.resourceDirectory = resources;
    QFile version(Path::appending(resources, QStringLiteral("version")));
    if (QFileInfo(version).isFile() && version.open(QIODevice::ReadOnly)) {
        const QString text = QString::fromUtf8(version.read(64)).trimmed();
        if (!text.isEmpty())
            bundle.version = text;
    }
    return bundle;
}
