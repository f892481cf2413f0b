#pragma once

#include "Foundation/Seam.h"
#include "Platform/Agent/LoopbackPost.h"
#include "Platform/Agent/ServiceManager.h"
#include "Platform/Files/FileSystem.h"
#include "Platform/Keyboard/USKeyboardLayout.h"

#include <QMap>
#include <QSet>

/// An outside world of made-up files, under the home directory /Users/sam, and a US keyboard, so that
/// pictures look the same on every machine.
class SampleDesk
{
public:
    SampleDesk();
    ~SampleDesk();
    Q_DISABLE_COPY_MOVE(SampleDesk)

    /// Adds a file by its path below the home directory, or an absolute one.
    void put(const QString &path, const QByteArray &bytes);
    void putFolder(const QString &path);

private:
    struct Files final : FileSystem {
        std::optional<QByteArray> read(const QString &path) override;
        bool write(const QString &path, const QByteArray &bytes) override;
        void keepCopy(const QString &, const QStringList &) override {}
        void createDirectory(const QString &path) override { folders.insert(path); }
        void remove(const QString &path) override { files.remove(path); }
        bool exists(const QString &path) override { return files.contains(path) || folders.contains(path); }
        bool isDirectory(const QString &path) override { return folders.contains(path); }

        QMap<QString, QByteArray> files;
        QSet<QString> folders;
    };

    struct LoadedJob final : ServiceManager {
        void isLoaded(std::chrono::milliseconds, Answer answer) override { answer(true); }
        void load(Answer answer) override { answer(true); }
        void unload(Answer answer) override { answer(true); }
        void finish(std::chrono::milliseconds) override {}
    };

    struct NoAgent final : LoopbackPost {
        void post(const QUrl &) override {}
        void finish(std::chrono::milliseconds) override {}
    };

    QByteArray m_home;
    Files m_files;
    LoadedJob m_job;
    NoAgent m_agent;
    USKeyboardLayout m_keyboard;
    Seam<FileSystem>::Replacement m_fileSeam{m_files};
    Seam<ServiceManager>::Replacement m_jobSeam{m_job};
    Seam<LoopbackPost>::Replacement m_agentSeam{m_agent};
    Seam<KeyboardLayout>::Replacement m_keyboardSeam{m_keyboard};
};
