#pragma once

#include <QByteArray>
#include <QString>

#include <sys/stat.h>

#include <cerrno>
#include <optional>

/// Files of this size in bytes, or larger, are neither read nor copied.
inline constexpr qint64 fileSizeLimit = qint64{4} << 30;

/// The path as the system's calls take it; nothing for one that they would truncate or refuse.
std::optional<QByteArray> systemPath(const QString &path);

/// An open regular file. Anything else (a directory, pipe, socket or device) is closed again at once. Opening
/// does not wait for the other end of a pipe, unlike QFile's.
class RegularFile
{
public:
    /// The flags are those of `open`, which says in `errno` why it failed; a new file gets these permissions
    /// within the user's mask.
    RegularFile(const QString &path, int flags, mode_t newFileMode = 0666);
    ~RegularFile();
    Q_DISABLE_COPY_MOVE(RegularFile)

    bool isOpen() const { return m_descriptor >= 0; }
    int descriptor() const { return m_descriptor; }

    /// The following describe the file at the time when it was opened.
    qint64 size() const { return m_status.st_size; }
    mode_t permissions() const { return m_status.st_mode & 0777U; }
    bool isSameAs(const RegularFile &other) const; ///< one file under two names counts as the same

    /// Reads at most `size` bytes at this offset. Returns how many; 0 at the end, negative on failure.
    qint64 read(qint64 offset, char *bytes, qsizetype size) const;

    /// Writes after the bytes written before. False when not all of them could be written.
    bool write(const QByteArray &bytes) const;

    /// False when something written earlier turns out not to have reached the file.
    bool close();

private:
    int m_descriptor = -1;
    struct stat m_status {
    };
};
