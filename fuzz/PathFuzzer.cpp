#include "Foundation/Text.h"
#include "Fuzzing.h"
#include "PlanningProjects/SessionMatching.h"
#include "Platform/Files/Path.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const auto path = Text::decoded(inputBytes(data, size));
    if (!path)
        return 0;
    qputenv("HOME", "/home/u");
    const QString standard = Path::standardizing(*path);
    MUST(standard.isEmpty() == path->isEmpty());
    const QStringList components = standard.split(u'/');
    for (qsizetype i = 1; i < components.size(); ++i) {
        MUST(!components[i].isEmpty() || standard == u"/");
        MUST(components[i] != u".");
        MUST(components[i] != u".." || components[i - 1] == u"..");
    }
    MUST(!components.front().isEmpty() || !components.contains(QStringLiteral("..")));
    // Only a tilde that came to the front may mean something the second time.
    MUST(standard.startsWith(u'~') || Path::standardizing(standard) == standard);
    MUST(Path::standardizing(*path + u'/') == (path->isEmpty() ? QStringLiteral("/") : standard));

    const QString inside = Path::appending(*path, QStringLiteral("inside"));
    MUST(Path::lastComponent(inside) == u"inside");
    MUST(Path::appending(Path::parent(inside), QStringLiteral("inside")) == inside);
    if (!path->isEmpty()) {
        const auto counts = PlanningProjects::countSessions({*path, QStringLiteral("elsewhere/x")},
                                                            {{*path, 3}, {inside, 4}});
        MUST(counts.front() == 7 || standard == u"." || components.back() == u"..");
    }
    return 0;
}
