#include "Platform/Agent/detail/UnitFolders.h"

#include "Platform/Files/Home.h"
#include "Platform/Files/Path.h"

using namespace Qt::StringLiterals;

namespace
{

/// The absolute paths among the folders of an environment variable; `otherwise` where there is none.
QStringList absoluteOr(const QStringList &folders, const QStringList &otherwise)
{
    QStringList absolute = folders;
    absolute.removeIf([](const QString &folder) { return !folder.startsWith(u'/'); });
    return absolute.isEmpty() ? otherwise : absolute;
}

QStringList folder(const char *variable, const QStringList &otherwise)
{
    return absoluteOr({qEnvironmentVariable(variable)}, otherwise);
}

QStringList folders(const char *variable, const QStringList &otherwise)
{
    return absoluteOr(qEnvironmentVariable(variable).split(u':'), otherwise);
}

QStringList below(const QStringList &bases, const QString &path)
{
    QStringList folders;
    for (const QString &base : bases)
        folders << Path::appending(base, path);
    return folders;
}

} // namespace

QStringList unitFolders()
{
    const auto home = homeDirectory();
    const QStringList homes = home ? QStringList{*home} : QStringList();
    const QStringList config = folder("XDG_CONFIG_HOME", below(homes, u".config"_s));
    const QStringList data = folder("XDG_DATA_HOME", below(homes, u".local/share"_s));
    const QStringList runtime = folder("XDG_RUNTIME_DIR", {});
    const QStringList systemFolders{u"/etc"_s, u"/run"_s, u"/usr/local/lib"_s, u"/usr/lib"_s, u"/lib"_s};

    QStringList found = below(config + runtime, u"systemd/user.control"_s);
    for (const auto &name : {u"transient"_s, u"generator.early"_s, u"generator"_s, u"generator.late"_s})
        found += below(below(runtime, u"systemd"_s), name);
    found += below(config + folders("XDG_CONFIG_DIRS", {u"/etc/xdg"_s}) + runtime + data +
                       folders("XDG_DATA_DIRS", {u"/usr/local/share"_s, u"/usr/share"_s}) + systemFolders,
                   u"systemd/user"_s);
    return found;
}
