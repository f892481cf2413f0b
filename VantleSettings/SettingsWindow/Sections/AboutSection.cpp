#include "SettingsWindow/Sections/AboutSection.h"

#include "Components/PathRow.h"
#include "Components/SettingsGroup.h"
#include "Components/SettingsRow.h"
#include "Platform/Files/Home.h"
#include "Platform/Files/Path.h"
#include "SettingsWindow/Sections/AboutHero.h"

#include <array>

using namespace Qt::StringLiterals;

namespace
{

struct SharedFile {
    QStringView label;
    QStringView pathInHome;
};

constexpr std::array sharedFiles{
    SharedFile{u"Sessions", u".vantle/sessions.json"},
    SharedFile{u"Browser Patterns", u".claude/browser-patterns.json"},
    SharedFile{u"Planning Config", u".vantle/planning.json"},
    SharedFile{u"Green-Screen Mode", u".vantle/green-screen.json"},
    SharedFile{u"Automatic Updates", u".vantle/updates.json"},
    SharedFile{u"LaunchAgent", u"Library/LaunchAgents/com.vantle.agent.plist"},
};

std::vector<QWidget *> pathRows(const Bundle &bundle)
{
    std::vector<QWidget *> rows{
        new PathRow(u"Settings Helper"_s, bundle.executablePath.value_or(u"(unknown)"_s))};
    const QString home = homeDirectory().value_or(QString());
    for (const SharedFile &file : sharedFiles) {
        rows.push_back(new SettingsRowDivider);
        rows.push_back(new PathRow(file.label.toString(), Path::appending(home, file.pathInHome.toString())));
    }
    return rows;
}

} // namespace

AboutSection::AboutSection(const Bundle &bundle, QWidget *parent) : SectionContent(parent)
{
    add(new SettingsGroup({}, {new AboutHero(version(bundle))}));
    add(new SettingsGroup({.header = u"Paths"_s}, pathRows(bundle)));
}

QString AboutSection::version(const Bundle &bundle)
{
    return bundle.version.value_or(u"dev"_s);
}
