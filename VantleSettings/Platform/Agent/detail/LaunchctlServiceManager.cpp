#include "Platform/Agent/detail/LaunchctlServiceManager.h"

#include "Foundation/Seam.h"
#include "Platform/Agent/detail/ToolOutput.h"
#include "Platform/Files/FileSystem.h"
#include "Platform/Files/Home.h"
#include "Platform/Files/Path.h"

using namespace Qt::StringLiterals;

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

/// The label counts wherever it stands in the listing, inside a longer one too; a listing that is no text
/// lists nothing.
bool LaunchctlServiceManager::isLoaded()
{
    const auto listing = toolOutput(tool(), {u"list"_s});
    return listing && listing->isValidUtf8() && listing->contains(label);
}

bool LaunchctlServiceManager::load()
{
    const auto file = jobFile();
    if (!file)
        return false;
    toolOutput(tool(), {u"load"_s, u"-w"_s, *file});
    return isLoaded();
}

/// Without `-w`: the job stays enabled, and the next login loads it again.
bool LaunchctlServiceManager::unload()
{
    const auto file = jobFile();
    if (!file)
        return false;
    toolOutput(tool(), {u"unload"_s, *file});
    return !isLoaded();
}
