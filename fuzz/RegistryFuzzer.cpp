#include "Foundation/Json.h"
#include "Fuzzing.h"
#include "Persistence/SessionRegistry.h"

#include <algorithm>

namespace
{

/// The directories of the registry by their definition, one text after the other.
QStringList straightforwardProjects(const Json::Value &registry, std::int64_t &sessions)
{
    QStringList projects;
    const auto elements = registry.elements();
    if (!std::all_of(elements.begin(), elements.end(),
                     [](const Json::Value &value) { return value.isObject(); }))
        return projects;
    for (const Json::Value &element : elements) {
        const auto members = element.members();
        const auto cwd = members.find(u"cwd");
        const QString path = cwd == members.end() ? QString() : cwd->second.text().value_or(QString());
        if (path.isEmpty())
            continue;
        ++sessions;
        if (std::none_of(projects.begin(), projects.end(),
                         [&](const QString &other) { return Text::equal(other, path); }))
            projects.append(path);
    }
    return projects;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes = inputBytes(data, size);
    const OneFile registry(bytes);
    const auto document = Json::Document::parse(bytes);
    const Json::Value root = document ? document->root() : Json::Value();
    MUST(Persistence::sessionsCount() == std::int64_t(root.elements().size()));
    std::int64_t sessions = 0;
    const QStringList projects = straightforwardProjects(root, sessions);
    MUST(Persistence::knownProjects() == projects);
    for (const auto &directory : Persistence::sessionDirectories())
        sessions -= directory.sessions;
    MUST(sessions == 0);
    return 0;
}
