#include "Platform/Files/detail/RegularFile.h"

#include <fcntl.h>
#include <unistd.h>

#include <algorithm>
#include <climits>
#include <utility>

namespace
{

/// Repeats a system call for as long as signals interrupt it.
template <class Call>
auto uninterrupted(Call call)
{
    auto result = call();
    while (result < 0 && errno == EINTR)
        result = call();
    return result;
}

/// The number of bytes for one call: some systems refuse more than 2 GiB.
std::size_t atOnce(qsizetype count)
{
    return std::size_t(std::min(count, qsizetype{1} << 30));
}

} // namespace

std::optional<QByteArray> systemPath(const QString &path)
{
    if (path.size() >= PATH_MAX || path.contains(QChar::Null))
        return std::nullopt;
    return path.toUtf8();
}

RegularFile::RegularFile(const QString &path, int flags, mode_t newFileMode)
{
    const auto name = systemPath(path);
    if (!name)
        return;
    m_descriptor = uninterrupted(
        [&] { return ::open(name->constData(), flags | O_NONBLOCK | O_CLOEXEC | O_NOCTTY, newFileMode); });
    if (isOpen() && (::fstat(m_descriptor, &m_status) != 0 || !S_ISREG(m_status.st_mode)))
        close();
}

RegularFile::~RegularFile()
{
    close();
}

bool RegularFile::isSameAs(const RegularFile &other) const
{
    return m_status.st_dev == other.m_status.st_dev && m_status.st_ino == other.m_status.st_ino;
}

qint64 RegularFile::read(qint64 offset, char *bytes, qsizetype size) const
{
    return uninterrupted([&] { return ::pread(m_descriptor, bytes, atOnce(size), offset); });
}

bool RegularFile::write(const QByteArray &bytes) const
{
    qsizetype written = 0;
    while (written < bytes.size()) {
        const auto count = uninterrupted([&] {
            return ::write(m_descriptor, bytes.constData() + written, atOnce(bytes.size() - written));
        });
        if (count <= 0)
            return false;
        written += count;
    }
    return true;
}

bool RegularFile::close()
{
    return isOpen() && ::close(std::exchange(m_descriptor, -1)) == 0;
}
