#include "Persistence/HomeFile.h"

#include "Foundation/Seam.h"
#include "Persistence/Persistence.h"
#include "Platform/Files/FileSystem.h"
#include "Platform/Files/Home.h"
#include "Platform/Files/Path.h"

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

} // namespace

std::optional<Json::Document> HomeFile::read(const QString &relativePath)
{
    const auto path = absolute(relativePath);
    const auto bytes = path ? files().read(*path) : std::nullopt;
    return bytes ? Json::Document::parse(*bytes) : std::nullopt;
}

bool HomeFile::write(const QString &relativePath, const Json::Node &node)
{
    if (const auto path = absolute(relativePath))
        Persistence::ensureDir(*path);
    const auto path = absolute(relativePath); // the home may have become another one meanwhile
    return path && files().write(*path, Json::encode(node));
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
