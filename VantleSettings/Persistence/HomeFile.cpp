#include "Persistence/HomeFile.h"

#include "Foundation/Seam.h"
#include "Platform/Files/FileSystem.h"
#include "Platform/Files/Home.h"
#include "Platform/Files/Path.h"

using namespace Qt::StringLiterals;

namespace
{

FileSystem &files()
{
    return Seam<FileSystem>::current();
}

std::optional<QString> absolute(const QString &relativePath)
{
    const auto home = homeDirectory();
    return home ? std::optional(Path::appending(*home, relativePath)) : std::nullopt;
}

std::optional<Json::Document> document(const QString &path)
{
    const auto bytes = files().read(path);
    return bytes ? Json::Document::parse(*bytes) : std::nullopt;
}

bool holdsRecord(const QString &path, const std::function<bool(const Json::Value &)> &isRecord)
{
    const auto present = document(path);
    return present && isRecord(present->root());
}

/// The paths to which a file that could not be read may be copied before it is overwritten.
QStringList unreadableCopies(const QString &path)
{
    constexpr int maximumCount = 9;
    QStringList places{path + u".unreadable"_s};
    for (int number = 2; number <= maximumCount; ++number)
        places.append(places.first() + u'-' + QString::number(number));
    return places;
}

} // namespace

std::optional<Json::Document> HomeFile::read(const QString &relativePath)
{
    const auto path = absolute(relativePath);
    return path ? document(*path) : std::nullopt;
}

bool HomeFile::write(const QString &relativePath, const Json::Node &record,
                     const std::function<bool(const Json::Value &)> &isRecord)
{
    if (const auto path = absolute(relativePath))
        Persistence::ensureDir(*path);
    const auto path = absolute(relativePath); // the home directory may have changed meanwhile
    if (!path)
        return false;
    if (!holdsRecord(*path, isRecord))
        files().keepCopy(*path, unreadableCopies(*path));
    return files().write(*path, Json::encode(record));
}

void HomeFile::remove(const QString &relativePath)
{
    if (const auto path = absolute(relativePath))
        files().remove(*path);
}

void Persistence::ensureDir(const QString &filePath)
{
    files().createDirectory(Path::parent(filePath));
}
