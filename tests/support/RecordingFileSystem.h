#pragma once

#include "Foundation/Seam.h"
#include "Platform/Files/FileSystem.h"

#include <QStringList>

/// The system's files, with a note of everything that was asked of them, e.g. "read /home/me/x".
class RecordingFileSystem final : public FileSystem
{
public:
    std::optional<QByteArray> read(const QString &path) override { return note(u"read", path).read(path); }
    bool write(const QString &path, const QByteArray &bytes) override
    {
        return note(u"write", path).write(path, bytes);
    }
    void keepCopy(const QString &path, const QStringList &places) override
    {
        note(u"keep a copy of", path).keepCopy(path, places);
    }
    void createDirectory(const QString &path) override { note(u"create", path).createDirectory(path); }
    void remove(const QString &path) override { note(u"remove", path).remove(path); }
    bool exists(const QString &path) override { return note(u"exists", path).exists(path); }
    bool isDirectory(const QString &path) override { return note(u"isDirectory", path).isDirectory(path); }

    QStringList notes;

private:
    FileSystem &note(QStringView what, const QString &path)
    {
        notes.append(what.toString() + QChar::Space + path);
        return FileSystem::system();
    }

    Seam<FileSystem>::Replacement m_replacement{*this};
};
