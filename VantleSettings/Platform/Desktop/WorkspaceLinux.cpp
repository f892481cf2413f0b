#include "Platform/Desktop/Workspace.h"
#include "Platform/Files/FileSystem.h"
#include "Platform/Files/Path.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QUrl>

using namespace Qt::StringLiterals;

namespace
{

// Not QFileInfo::absoluteFilePath(): a leading colon would name one of our own resources. The result begins
// with a single slash: after two, a URL names a host.
QString absolutePath(const QString &path)
{
    return Path::appending(path.startsWith(u'/') ? u"/"_s : QDir::currentPath(), path);
}

/// Whether the path can be that of a file.
bool isPossible(const QString &path)
{
    return !path.isEmpty() && absolutePath(path).size() < FileSystem::tooLong;
}

QUrl fileUrl(const QString &path)
{
    return QUrl::fromLocalFile(absolutePath(path));
}

void showParentFolder(const QString &path)
{
    QDesktopServices::openUrl(QUrl::fromLocalFile(QFileInfo(absolutePath(path)).path()));
}

QDBusMessage showItemsCall(const QString &path)
{
    auto call =
        QDBusMessage::createMethodCall(u"org.freedesktop.FileManager1"_s, u"/org/freedesktop/FileManager1"_s,
                                       u"org.freedesktop.FileManager1"_s, u"ShowItems"_s);
    const QStringList items{fileUrl(path).toString(QUrl::FullyEncoded)};
    const QString startupId;
    call << items << startupId;
    return call;
}

/// Asks the desktop's file manager over D-Bus, the only way to have an item selected; where none answers,
/// the folder that holds the item is opened instead.
class DesktopWorkspace : public Workspace
{
public:
    void reveal(const QString &path) override
    {
        if (!isPossible(path))
            return;
        auto bus = QDBusConnection::sessionBus();
        if (!bus.isConnected()) {
            showParentFolder(path);
            return;
        }
        auto *answer = new QDBusPendingCallWatcher(bus.asyncCall(showItemsCall(path)));
        QObject::connect(answer, &QDBusPendingCallWatcher::finished, answer, [answer, path] {
            if (answer->isError())
                showParentFolder(path);
            answer->deleteLater();
        });
    }

    void open(const QString &path) override
    {
        if (isPossible(path))
            QDesktopServices::openUrl(fileUrl(path));
    }
};

} // namespace

Workspace &Workspace::system()
{
    static DesktopWorkspace workspace;
    return workspace;
}
