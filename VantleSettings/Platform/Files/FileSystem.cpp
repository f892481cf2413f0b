#include "Platform/Files/FileSystem.h"

#include <QDir>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <new>
#include <utility>

namespace
{

constexpr qint64 sizeLimit = qint64{4} << 30;
constexpr qsizetype roomBehindTheEnd = 256;

/// The path as the system's calls take it; nothing for one that they would cut short.
std::optional<QByteArray> systemPath(const QString &path)
{
    if (path.contains(QChar::Null))
        return std::nullopt;
    return path.toUtf8();
}

std::optional<struct stat> statusOf(const QString &path)
{
    const auto name = systemPath(path);
    struct stat status {
    };
    if (!name || ::stat(name->constData(), &status) != 0)
        return std::nullopt;
    return status;
}

/// Makes a system call again for as long as signals interrupt it.
template <class Call>
auto uninterrupted(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

/// An open regular file. Anything else (a directory, pipe, socket or device) is given up at once: opening
/// does not wait for the other end of a pipe.
class RegularFile
{
public:
    RegularFile(const QString &path, int flags)
    {
        const auto name = systemPath(path);
        if (!name)
            return;
        constexpr mode_t everybodyWithinTheMask = 0666;
        m_descriptor = uninterrupted([&] {
            return ::open(name->constData(), flags | O_NONBLOCK | O_CLOEXEC | O_NOCTTY,
                          everybodyWithinTheMask);
        });
        struct stat status {
        };
        if (m_descriptor >= 0 && (::fstat(m_descriptor, &status) != 0 || !S_ISREG(status.st_mode)))
            close();
        m_size = status.st_size;
    }

    ~RegularFile() { close(); }
    Q_DISABLE_COPY_MOVE(RegularFile)

    bool isOpen() const { return m_descriptor >= 0; }
    int descriptor() const { return m_descriptor; }
    qint64 size() const { return m_size; }

    /// False when something written earlier turns out not to have reached the file.
    bool close() { return isOpen() && ::close(std::exchange(m_descriptor, -1)) == 0; }

private:
    int m_descriptor = -1;
    qint64 m_size = 0;
};

/// What one call may move: some systems refuse more than 2 GiB.
std::size_t atOnce(qsizetype count)
{
    return std::size_t(std::min(count, qsizetype{1} << 30));
}

/// Reads to the end, wherever that is by now: the file may grow or shrink meanwhile.
std::optional<QByteArray> readToEnd(const RegularFile &file)
{
    if (file.size() >= sizeLimit)
        return std::nullopt;
    QByteArray bytes(qsizetype(file.size()) + roomBehindTheEnd, Qt::Uninitialized);
    qsizetype length = 0;
    while (true) {
        const auto count = uninterrupted(
            [&] { return ::read(file.descriptor(), bytes.data() + length, atOnce(bytes.size() - length)); });
        if (count < 0 || length + count >= sizeLimit)
            return std::nullopt;
        if (count == 0)
            break;
        length += count;
        if (bytes.size() - length < roomBehindTheEnd)
            bytes.resize(bytes.size() * 2);
    }
    bytes.resize(length);
    return bytes;
}

bool writeAll(const RegularFile &file, const QByteArray &bytes)
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const auto count = uninterrupted([&] {
            return ::write(file.descriptor(), bytes.constData() + written, atOnce(bytes.size() - written));
        });
        if (count <= 0)
            return false;
        written += count;
    }
    return true;
}

class SystemFileSystem final : public FileSystem
{
public:
    SystemFileSystem()
    {
        // A limit on the size of files is a write that fails, not the end of the program.
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
        return file.isOpen() && ::ftruncate(file.descriptor(), 0) == 0 && writeAll(file, bytes) &&
               file.close();
    }

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
