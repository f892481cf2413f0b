#include "Persistence/SessionRegistry.h"

#include "Persistence/HomeFile.h"
#include "Persistence/SharedFiles.h"

#include <algorithm>
#include <deque>
#include <string>
#include <unordered_map>

using namespace Qt::StringLiterals;

namespace
{

std::optional<Json::Document> readRegistry()
{
    return HomeFile::read(SharedFiles::sessions.path);
}

/// Collects distinct directories. Decodes and composes only a spelling whose bytes are new, because the
/// registry may hold a million sessions and most have a directory that was seen before.
class Directories
{
public:
    /// One more session in this directory. The bytes have to outlive this object.
    void add(std::string_view spelling)
    {
        const auto [place, isNewSpelling] = m_indexes.try_emplace(spelling, m_directories.size());
        std::size_t &index = place->second;
        if (isNewSpelling)
            index = indexOf(Text::decoded(spelling).value_or(QString()), index);
        ++m_directories[index].sessions;
    }

    std::vector<Persistence::SessionDirectory> take() { return std::move(m_directories); }

private:
    /// The index of the directory that equals `path`; adds it as `newIndex` where there is none.
    std::size_t indexOf(const QString &path, std::size_t newIndex)
    {
        const std::string &composed = m_composed.emplace_back(Text::composed(path).toStdString());
        const std::size_t index = m_indexes.try_emplace(composed, newIndex).first->second;
        if (index == newIndex)
            m_directories.push_back({path, 0});
        return index;
    }

    std::vector<Persistence::SessionDirectory> m_directories;
    std::unordered_map<std::string_view, std::size_t> m_indexes; ///< by spelling, and by composed form
    std::deque<std::string> m_composed;
};

} // namespace

std::int64_t Persistence::sessionsCount()
{
    const auto registry = readRegistry();
    return registry ? std::int64_t(registry->root().elementCount()) : 0;
}

std::vector<Persistence::SessionDirectory> Persistence::sessionDirectories()
{
    const auto registry = readRegistry();
    if (!registry)
        return {};
    const auto sessions = registry->root().elements();
    if (!std::all_of(sessions.begin(), sessions.end(),
                     [](const auto &session) { return session.isObject(); }))
        return {};
    Directories directories;
    for (const Json::Value &session : sessions) {
        const auto directory = session["cwd"].utf8();
        if (directory && !directory->empty())
            directories.add(*directory);
    }
    return directories.take();
}

QStringList Persistence::knownProjects()
{
    QStringList paths;
    for (const SessionDirectory &directory : sessionDirectories())
        paths.append(directory.path);
    return paths;
}
