#include "Platform/Files/Bundle.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>

Bundle installedBundle(const QString &executablePath)
{
    if (executablePath.isEmpty())
        return {};
    Bundle bundle{.executablePath = executablePath, .resourceDirectory = {}, .version = {}};
    const QDir resources(QDir::cleanPath(
        QFileInfo(executablePath).dir().filePath(QStringLiteral(VANTLE_DATA_FROM_EXECUTABLE))));
    if (!resources.exists())
        return bundle;
    bundle.resourceDirectory = resources.path();
    QFile version(resources.filePath(QStringLiteral("version")));
    if (QFileInfo(version).isFile() && version.open(QIODevice::ReadOnly)) {
        const QString text = QString::fromUtf8(version.read(64)).trimmed();
        if (!text.isEmpty())
            bundle.version = text;
    }
    return bundle;
}
