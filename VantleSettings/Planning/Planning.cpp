#include "Planning/Planning.h"

#include "Foundation/Text.h"
#include "Persistence/HomeFile.h"

using namespace Qt::StringLiterals;

namespace
{

const QString planningFile = u".vantle/planning.json"_s;

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
    return HomeFile::write(planningFile, record);
}

void Planning::clear()
{
    HomeFile::remove(planningFile);
}

std::optional<QString> Planning::loadPlanningConfig()
{
    const auto document = HomeFile::read(planningFile);
    return document ? document->root()["root"].text() : std::nullopt;
}
