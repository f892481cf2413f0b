#include "Platform/Files/FileSystem.h"

#include "Platform/Files/detail/FileCopy.h"
#include "Platform/Files/detail/RegularFile.h"

#include <QDir>

#include <fcntl.h>
#include <unistd.h>

#include <csignal>
#include <new>

namespace
{

constexpr qsizetype paddingSize = 256;

std::optional<struct stat> statusOf(const QString &path)
{
    const auto name = systemPath(path);
    struct stat status {
    };
    if (!name || ::stat(name->constData(), &status) != 0)
        return std::nullopt;
    return status;
}

/// Reads to the end, wherever that is by now: the file may grow or shrink meanwhile.
std::optional<QByteArray> readToEnd(const RegularFile &file)
{
    if (file.size() >= fileSizeLimit)
        return std::nullopt;
    QByteArray bytes(qsizetype(file.size()) + paddingSize, Qt::Uninitialized);
    qsizetype length = 0;
    while (true) {
        const qint64 count = file.read(length, bytes.data() + length, bytes.size() - length);
        if (count < 0 || length + count >= fileSizeLimit)
            return std::nullopt;
        if (count == 0)
            break;
        length += count;
        if (bytes.size() - length < paddingSize)
            bytes.resize(bytes.size() * 2);
    }
    bytes.resize(length);
    return bytes;
}

class SystemFileSystem final : public FileSystem
{
public:
    SystemFileSystem()
    {
        // A write beyond the limit on file sizes then fails instead of ending the program.
        std::signal(SIGXFSZ, SIG_IGN);
    }

    std::optional<QByteArray> read(const QString &path) override
    {
        const RegularFile file(path, O_RDONLY);
        if (!file.isOpen())
            return std::nullopt;
        try {
            return readToEnd(file);
        } catch (const std::bad_alloc &) {
            return std::nullopt;
        }
    }

    bool write(const QString &path, const QByteArray &bytes) override
    {
        RegularFile file(path, O_WRONLY | O_CREAT);
        return file.isOpen() && ::ftruncate(file.descriptor(), 0) == 0 && file.write(bytes) && file.close();
    }

    void keepCopy(const QString &path, const QStringList &places) override { copyToFreePlace(path, places); }

    void createDirectory(const QString &path) override
    {
        if (systemPath(path))
            QDir().mkpath(path);
    }

    void remove(const QString &path) override
    {
        if (const auto name = systemPath(path))
            ::unlink(name->constData());
    }

    bool exists(const QString &path) override { return statusOf(path).has_value(); }

    bool isDirectory(const QString &path) override
    {
        const auto status = statusOf(path);
        return status && S_ISDIR(status->st_mode);
    }
};

} // namespace

FileSystem::~FileSystem() = default;

FileSystem &FileSystem::system()
{
    static SystemFileSystem fileSystem;
    return fileSystem;
}
