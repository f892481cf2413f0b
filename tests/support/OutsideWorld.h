#pragma once

#include "Foundation/Seam.h"
#include "Platform/Agent/LoopbackPost.h"
#include "Platform/Agent/ServiceManager.h"
#include "Platform/Files/FileSystem.h"

#include <QMap>

#include <deque>
#include <functional>
#include <string>
#include <vector>

/// Stand-ins for the file system, the service manager and the agent's port. They record all calls in one
/// list, in order. The files are in memory.
class OutsideWorld
{
public:
    /// Puts a file under the home directory, e.g. ".vantle/typeface.json".
    void put(const QString &relativePath, const QByteArray &bytes);

    /// A file's bytes; nothing when it isn't there.
    std::optional<QByteArray> file(const QString &relativePath) const;

    /// What was asked since the last call, e.g. "read ~/.vantle/typeface.json" or
    /// "post http://127.0.0.1:18484/settings/reload-typeface".
    std::vector<std::string> takeRecord();

    /// Of the same, only "write" and "post", without what was written or posted.
    std::vector<std::string> takeChanges();

    bool filesRefuse = false; ///< nothing can be written
    bool serviceIsLoaded = false;
    bool serviceRefuses = false; ///< loading and unloading change nothing
    bool serviceIsSlow = false;  ///< the service manager answers only when it is told to

    /// Lets a slow service manager give the first answer that it owes.
    void answerForService();

private:
    void note(const std::string &verb, const QString &object = {}, const QByteArray &bytes = {});

    struct Files final : FileSystem {
        explicit Files(OutsideWorld &owner) : world(owner) {}
        std::optional<QByteArray> read(const QString &path) override;
        bool write(const QString &path, const QByteArray &bytes) override;
        void keepCopy(const QString &path, const QStringList &places) override;
        void createDirectory(const QString &path) override;
        void remove(const QString &path) override;
        bool exists(const QString &path) override;
        bool isDirectory(const QString &path) override;
        OutsideWorld &world;
        QMap<QString, QByteArray> files;
    };

    struct Service final : ServiceManager {
        explicit Service(OutsideWorld &owner) : world(owner) {}
        void isLoaded(std::chrono::milliseconds patience, Answer answer) override;
        void load(Answer answer) override;
        void unload(Answer answer) override;
        void finish(std::chrono::milliseconds limit) override;
        OutsideWorld &world;
    };

    struct Posts final : LoopbackPost {
        explicit Posts(OutsideWorld &owner) : world(owner) {}
        void post(const QUrl &url) override;
        void finish(std::chrono::milliseconds limit) override;
        OutsideWorld &world;
    };

    void answer(std::function<void()> work);

    std::vector<std::string> m_record;
    std::deque<std::function<void()>> m_owedAnswers;
    Files m_files{*this};
    Service m_service{*this};
    Posts m_posts{*this};
    Seam<FileSystem>::Replacement m_fileSeam{m_files};
    Seam<ServiceManager>::Replacement m_serviceSeam{m_service};
    Seam<LoopbackPost>::Replacement m_postSeam{m_posts};
};
