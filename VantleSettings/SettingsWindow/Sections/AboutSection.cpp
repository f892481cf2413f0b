#include "SettingsWindow/Sections/AboutSection.h"

#include "Components/Drawing/Tokens.h"
#include "Components/PathRow.h"
#include "Components/RowLayout.h"
#include "Components/SettingsGroup.h"
#include "Components/SettingsRow.h"
#include "Components/SidebarIcon.h"
#include "Components/Text/Label.h"
#include "Persistence/SharedFiles.h"
#include "Platform/Files/Home.h"
#include "Platform/Files/Path.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace
{

constexpr TileSize heroTile{.side = 54, .radius = 12, .symbol = 26};
constexpr int versionExtraSpacing = 2;

/// The program's tile beside its name, description and version.
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
    const auto add = [&](const QString &label, const QString &pathInHome) {
        rows.push_back(new SettingsRowDivider);
        rows.push_back(new PathRow(label, Path::appending(home, pathInHome)));
    };
    add(u"Sessions"_s, SharedFiles::sessions.path);
    add(u"Browser Patterns"_s, SharedFiles::browserPatterns.path);
    add(u"Planning Config"_s, SharedFiles::planning.path);
    add(u"Green-Screen Mode"_s, SharedFiles::greenScreen.path);
    add(u"Automatic Updates"_s, SharedFiles::updates.path);
    add(u"LaunchAgent"_s, u"Library/LaunchAgents/com.vantle.agent.plist"_s);
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
