#include "SettingsWindow/Sections/AboutSection.h"

#include "Components/Drawing/Tokens.h"
#include "Components/PathRow.h"
#include "Components/RowLayout.h"
#include "Components/SettingsGroup.h"
#include "Components/SettingsRow.h"
#include "Components/SidebarIcon.h"
#include "Components/Text/Label.h"
#include "Platform/Files/Home.h"
#include "Platform/Files/Path.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

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

constexpr TileSize heroTile{.side = 54, .radius = 12, .symbol = 26};
constexpr int versionExtraSpacing = 2;

/// The program's tile beside its name, what it is, and its version.
QWidget *hero(const QString &version)
{
    auto *texts = rowTexts({new WrappedLabel(u"Vantle"_s, TextStyle::size15Semibold),
                            new WrappedLabel(u"Liquid-Glass notification overlays for Claude Code."_s,
                                             TextStyle::size12, TextColor::secondary),
                            new WrappedLabel(u"Settings helper · version "_s + version, TextStyle::size11,
                                             TextColor::secondary)});
    texts->insertSpacing(2, versionExtraSpacing);
    auto *row = new QWidget;
    auto *layout = rowLayout(new SidebarIcon(u"bell.badge.fill"_s, SystemColor::indigo, heroTile), texts);
    layout->setContentsMargins(Tokens::rowPadding, Tokens::rowPadding, Tokens::rowPadding,
                               Tokens::rowPadding);
    row->setLayout(layout);
    return row;
}

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
    add(new SettingsGroup({}, {hero(version(bundle))}));
    add(new SettingsGroup({.header = u"Paths"_s}, pathRows(bundle)));
}

QString AboutSection::version(const Bundle &bundle)
{
    return bundle.version.value_or(u"dev"_s);
}
