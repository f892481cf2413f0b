#pragma once

#include "Platform/Agent/LoopbackPost.h"
#include "Platform/Agent/ServiceManager.h"

#include <QStringList>
#include <QUrl>

#include <chrono>
#include <vector>

/// Sends nothing, and records the requests and limits.
struct FakeLoopbackPost final : LoopbackPost {
    std::vector<QUrl> urls;
    std::vector<std::chrono::milliseconds> limits; ///< of `finish`

    QStringList paths() const
    {
        QStringList paths;
        for (const QUrl &url : urls)
            paths << url.path();
        return paths;
    }

    void post(const QUrl &url) override { urls.push_back(url); }
    void finish(std::chrono::milliseconds limit) override { limits.push_back(limit); }
};

/// A login job that is loaded and unloaded at once.
struct FakeServiceManager final : ServiceManager {
    bool loaded = false;
    std::vector<std::chrono::milliseconds> patiences; ///< of `isLoaded`
    std::vector<std::chrono::milliseconds> limits;    ///< of `finish`

    void isLoaded(std::chrono::milliseconds patience, Answer answer) override
    {
        patiences.push_back(patience);
        answer(loaded);
    }
    void load(Answer answer) override { answer(loaded = true); }
    void unload(Answer answer) override { answer(loaded = false); }
    void finish(std::chrono::milliseconds limit) override { limits.push_back(limit); }
};
