#pragma once

#include <QByteArray>
#include <QString>
#include <QStringList>

#include <climits>
#include <optional>

/// The files of this machine as the program needs them: whole files, in place, nothing cached. A path is
/// absolute, or else starts at the process's working directory.
class FileSystem
{
public:
    /// No file has a path of this many characters: the system's calls refuse it.
    static constexpr qsizetype tooLong = PATH_MAX;

    virtual ~FileSystem();
    Q_DISABLE_COPY_MOVE(FileSystem)

    /// The bytes of a regular file or of a link to one. Nothing for a file that can't be read or has 4 GiB or
    /// more, and nothing, at once, for a pipe, a device or the like. The array has spare capacity behind its
    /// end for a parser that reads in blocks.
    virtual std::optional<QByteArray> read(const QString &path) = 0;

    /// Replaces the file's bytes in place: truncated and rewritten, no temporary file, no rename, because the
    /// file may be a link and its mode and owner are the user's. False when it could not be written whole.
    virtual bool write(const QString &path, const QByteArray &bytes) = 0;

    /// Copies a regular file, or the one that a link leads to, to the first of these paths at which nothing
    /// exists, unless one of them is a copy of it already. The copy has the file's permissions. Existing
    /// files are not changed, and links at these paths are not followed. An incomplete copy is removed.
    virtual void keepCopy(const QString &path, const QStringList &places) = 0;

    /// Makes a directory and its missing parents. Failures are not reported: the write that follows fails.
    virtual void createDirectory(const QString &path) = 0;

    /// Removes a file or a link, never a directory; failures are not reported.
    virtual void remove(const QString &path) = 0;

    /// Whether anything is at this path, links followed.
    virtual bool exists(const QString &path) = 0;

    /// Whether a directory is at this path, links followed.
    virtual bool isDirectory(const QString &path) = 0;

    static FileSystem &system();

protected:
    FileSystem() = default;
};
