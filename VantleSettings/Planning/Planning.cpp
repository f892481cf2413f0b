#include "Planning/Planning.h"

#include "Foundation/Text.h"
#include "Persistence/HomeFile.h"

using namespace Qt::StringLiterals;

namespace
{

const QString planningFile = u".vantle/planning.json"_s;

std::optional<Planning::Config> decoded(const Json::Value &top)
{
    const Json::Value root = top["root"];
    if (!top.isObject() || !(root.isAbsent() || root.text()))
        return std::nullopt;
    return Planning::Config{root.text()};
}

} // namespace

bool Planning::Config::operator==(const Config &other) const
{
    return root && other.root ? Text::equal(*root, *other.root) : root == other.root;
}

bool Planning::save(const Config &config)
{
    Json::Object record;
    if (config.root)
        record.emplace_back(u"root"_s, *config.root);
    return HomeFile::save(planningFile, record, decoded);
}

void Planning::clear()
{
    HomeFile::remove(planningFile);
}

std::optional<QString> Planning::loadPlanningConfig()
{
    return HomeFile::load(planningFile, decoded).value_or(Config()).root;
}
