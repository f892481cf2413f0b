#include "Platform/Agent/detail/LaunchctlServiceManager.h"

#include "Foundation/Seam.h"
#include "Platform/Files/FileSystem.h"
#include "Platform/Files/Home.h"
#include "Platform/Files/Path.h"

#include <utility>

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace
{

constexpr QByteArrayView label = "com.vantle.agent";

QString tool()
{
    return u"/bin/launchctl"_s;
}

/// The job's property list; nothing where there is none.
std::optional<QString> jobFile()
{
    const auto home = homeDirectory();
    if (!home)
        return std::nullopt;
    const QString path = Path::appending(*home, u"Library/LaunchAgents/com.vantle.agent.plist"_s);
    return Seam<FileSystem>::current().exists(path) ? std::optional(path) : std::nullopt;
}

} // namespace

bool LaunchctlServiceManager::isAvailable()
{
    return Seam<FileSystem>::current().exists(tool());
}

/// The label may stand anywhere in the listing, even inside a longer label. A listing that is not UTF-8
/// counts as empty.
void LaunchctlServiceManager::isLoaded(std::chrono::milliseconds patience, Answer answer)
{
    auto *listing = ToolRun::reading(tool(), {u"list"_s}, [answer = std::move(answer)](const auto &output) {
        answer(output && output->isValidUtf8() && output->contains(label));
    });
    if (patience > 0ms)
        listing->waitForFinished(int(patience.count()));
}

void LaunchctlServiceManager::load(Answer answer)
{
    const auto file = jobFile();
    if (!file)
        return answer(false);
    change({u"load"_s, u"-w"_s, *file}, std::move(answer));
}

/// Without `-w`: the job stays enabled, and the next login loads it again.
void LaunchctlServiceManager::unload(Answer answer)
{
    const auto file = jobFile();
    if (!file)
        return answer(false);
    change({u"unload"_s, *file}, [answer = std::move(answer)](bool loaded) { answer(!loaded); });
}

/// The tool runs on when the program ends; waiting for it gives it time to begin.
void LaunchctlServiceManager::finish(std::chrono::milliseconds limit)
{
    if (m_change)
        m_change->waitForFinished(int(limit.count()));
}

void LaunchctlServiceManager::change(const QStringList &arguments, Answer loadedAfterwards)
{
    m_change = ToolRun::silent(tool(), arguments, [this, answer = std::move(loadedAfterwards)](const auto &) {
        isLoaded(0ms, answer);
    });
}
