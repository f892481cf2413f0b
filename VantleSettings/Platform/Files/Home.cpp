#include "Platform/Files/Home.h"

#include "Foundation/Text.h"

#include <QByteArray>

#include <pwd.h>
#include <unistd.h>

#include <cerrno>
#include <vector>

namespace
{

/// A directory that texts can name: absolute, and its bytes are UTF-8.
std::optional<QString> directory(const QByteArray &bytes)
{
    if (!bytes.startsWith('/'))
        return std::nullopt;
    return Text::decoded(bytes);
}

/// The home directory of the entry that `find` (a reentrant look-up) gives.
template <class Find>
std::optional<QString> directoryOfEntry(Find find)
{
    passwd entry{};
    passwd *found = nullptr;
    std::vector<char> texts(1024);
    while (find(&entry, texts.data(), texts.size(), &found) == ERANGE)
        texts.resize(texts.size() * 2);
    if (!found)
        return std::nullopt;
    return directory(QByteArray(found->pw_dir));
}

} // namespace

std::optional<QString> homeDirectory()
{
    if (auto home = directory(qgetenv("HOME")))
        return home;
    return directoryOfEntry([](auto... buffers) { return ::getpwuid_r(::getuid(), buffers...); });
}

std::optional<QString> homeDirectory(const QString &user)
{
    constexpr qsizetype tooLong = 256; // for any system's users
    if (user.size() >= tooLong)
        return std::nullopt;
    const QByteArray name = user.toUtf8();
    if (name.contains('\0'))
        return std::nullopt;
    return directoryOfEntry([&](auto... buffers) { return ::getpwnam_r(name.constData(), buffers...); });
}
