#include "Planning/Planning.h"

#include "Foundation/Text.h"
#include "Persistence/HomeFile.h"
#include "Persistence/SharedFiles.h"

using namespace Qt::StringLiterals;

namespace
{

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
    return HomeFile::save(SharedFiles::planning.path, record, decoded);
}

void Planning::clear()
{
    HomeFile::remove(SharedFiles::planning.path);
}

std::optional<QString> Planning::loadPlanningConfig()
{
    return HomeFile::load(SharedFiles::planning.path, decoded).value_or(Config()).root;
}
