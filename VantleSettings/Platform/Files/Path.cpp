#include "Platform/Files/Path.h"

#include "Foundation/Seam.h"
#include "Platform/Files/FileSystem.h"
#include "Platform/Files/Home.h"
#include "Platform/Files/PathSpelling.h"

#include <QStringBuilder>
#include <QStringView>
#include <QVarLengthArray>

#include <algorithm>
#include <array>

using namespace Qt::StringLiterals;

namespace
{

/// Whether two slashes stand side by side. (The toolkit's search for two characters is slow on long texts.)
bool hasRunOfSlashes(QStringView path)
{
    const auto areSlashes = [](QChar one, QChar other) { return one == u'/' && other == u'/'; };
    return std::adjacent_find(path.begin(), path.end(), areSlashes) != path.end();
}

/// The path with each run of slashes as one slash, and without one at the end except for the root.
QString withSingleSlashes(const QString &path)
{
    if (!hasRunOfSlashes(path) && (path.size() <= 1 || !path.endsWith(u'/')))
        return path;
    QString result;
    result.reserve(path.size());
    for (const QChar unit : path) {
        if (unit != u'/' || !result.endsWith(u'/'))
            result += unit;
    }
    if (result.size() > 1 && result.endsWith(u'/'))
        result.chop(1);
    return result;
}

/// Whether the path may have a component `.` or `..`: other names that begin with a dot count, too.
bool mayHaveDots(QStringView path)
{
    return path.startsWith(u'.') || path.contains(u"/.");
}

QString withoutDots(const QString &path)
{
    const bool absolute = path.startsWith(u'/');
    QVarLengthArray<QStringView, 32> kept;
    for (const QStringView component : QStringView(path).tokenize(u'/', Qt::SkipEmptyParts)) {
        if (component == u".")
            continue;
        const bool isUp = component == u"..";
        if (isUp && !kept.isEmpty() && kept.back() != u"..")
            kept.removeLast();
        else if (!isUp || !absolute)
            kept.append(component);
    }
    QString result;
    result.reserve(path.size());
    for (const QStringView component : kept) {
        if (absolute || !result.isEmpty())
            result += u'/';
        result += component;
    }
    if (result.isEmpty())
        result = absolute ? u'/' : u'.';
    return result;
}

} // namespace

QStringView Path::lastComponent(QStringView path)
{
    while (path.size() > 1 && path.endsWith(u'/'))
        path.chop(1);
    if (path == u"/")
        return path;
    // The toolkit's search from the end takes several times as long.
    return path.last(std::find(path.rbegin(), path.rend(), u'/') - path.rbegin());
}

QString Path::parent(const QString &path)
{
    const QString plain = withSingleSlashes(path);
    const auto slash = plain.lastIndexOf(u'/');
    return plain.first(slash == 0 ? 1 : qMax(slash, 0));
}

QString Path::appending(const QString &path, const QString &component)
{
    if (path.isEmpty())
        return withSingleSlashes(component);
    return withSingleSlashes(path % u'/' % component);
}

QString Path::expandingTilde(const QString &path)
{
    QString plain = withSingleSlashes(path);
    if (!plain.startsWith(u'~'))
        return plain;
    const auto slash = plain.indexOf(u'/');
    const QString user = plain.sliced(1, (slash < 0 ? plain.size() : slash) - 1);
    const auto home = user.isEmpty() ? homeDirectory() : homeDirectory(user);
    if (!home)
        return plain;
    return slash < 0 ? withSingleSlashes(*home) : appending(*home, plain.sliced(slash));
}

QString Path::standardizing(const QString &path)
{
    const QString expanded = expandingTilde(path);
    return systemSpelling(mayHaveDots(expanded) ? withoutDots(expanded) : expanded);
}

QString Path::withoutPrivate(const QString &path)
{
    static constexpr std::array<QStringView, 12> topLevelDirectories{
        u"Applications", u"Library", u"System", u"Users",   u"Volumes", u"bin",
        u"cores",        u"dev",     u"opt",    u"private", u"sbin",    u"usr"};
    const QString prefix = u"/private"_s;
    if (!path.startsWith(prefix + u'/'))
        return path;
    const QString rest = path.sliced(prefix.size());
    const QStringView first = QStringView(rest).sliced(1, (rest + u'/').indexOf(u'/', 1) - 1);
    const bool stays =
        std::find(topLevelDirectories.begin(), topLevelDirectories.end(), first) != topLevelDirectories.end();
    return stays || !Seam<FileSystem>::current().exists(rest) ? path : rest;
}
