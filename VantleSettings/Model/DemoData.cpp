#include "Model/DemoData.h"

#include "Platform/Files/Path.h"

using namespace Qt::StringLiterals;

const Persistence::BrowserPatterns &DemoData::browserPatterns()
{
    static const Persistence::BrowserPatterns patterns = {
        {u"/Users/demo/workspace/vantle"_s,
         {u"github.com/vantle-app/vantle/*"_s, u"react.dev/reference/*"_s}},
        {u"/Users/demo/workspace/vantle-browser"_s,
         {u"developer.chrome.com/*"_s, u"developer.mozilla.org/*"_s}},
        {u"/Users/demo/workspace/vantle-usage"_s,
         {u"console.anthropic.com/*"_s, u"platform.openai.com/usage*"_s}},
    };
    return patterns;
}

std::vector<PlanningProject> DemoData::planningProjects()
{
    const auto project = [](const QString &name, const QString &path, std::int64_t sessionCount) {
        return PlanningProject{.name = name,
                               .path = path,
                               .todoPath = Path::appending(path, u"TODO.toml"_s),
                               .sessionCount = sessionCount,
                               .existsOverride = true};
    };
    return {project(u"Vantle Agent"_s, u"/Users/demo/workspace/vantle"_s, 2),
            project(u"Browser Capture"_s, u"/Users/demo/workspace/vantle-browser"_s, 1),
            project(u"Usage Analytics"_s, u"/Users/demo/workspace/vantle-usage"_s, 1)};
}
