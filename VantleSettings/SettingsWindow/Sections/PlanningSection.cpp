#include "SettingsWindow/Sections/PlanningSection.h"

#include "Components/Buttons.h"
#include "Components/Drawing/Tokens.h"
#include "Components/RowLayout.h"
#include "Components/RowList.h"
#include "Components/SettingsGroup.h"
#include "Components/SidebarIcon.h"
#include "Components/Text/Label.h"
#include "Foundation/Seam.h"
#include "Model/SettingsModel.h"
#include "Persistence/SharedFiles.h"
#include "PlanningProjects/PlanningProjects.h"
#include "Platform/Desktop/Appearance/Symbol.h"
#include "Platform/Files/FileSystem.h"
#include "Platform/Window/Accessibility/AccessibleRole.h"
#include "Platform/Window/Accessibility/Announcement.h"
#include "SettingsWindow/Sections/PlanningPathRow.h"
#include "SettingsWindow/Sections/PlanningProjectRow.h"

#include <QHBoxLayout>
#include <QStringBuilder>
#include <QVBoxLayout>
#include <QtNumeric>

#include <algorithm>
#include <functional>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr int emptyPaddingVertical = 14;
constexpr int summaryPaddingVertical = 10;
constexpr int summaryGap = 8;
constexpr qreal refreshSymbolSize = 11;

QString counted(std::int64_t count, const QString &singular)
{
    return count == 1 ? u"1 "_s + singular : QString::number(count) + u' ' + singular + u's';
}

} // namespace

PlanningSection::PlanningSection(SettingsModel &model, QWidget *parent)
    : SectionContent(parent),
      m_model(model),
      m_emptyIcon(new SidebarIcon(u"doc.badge.ellipsis"_s, SystemColor::gray)),
      m_emptyTitle(new Label({}, TextStyle::size13Medium)),
      m_emptyText(new WrappedLabel({}, TextStyle::size11, TextColor::secondary)),
      m_empty(emptyRow()),
      m_rows(projectRows()),
      m_summaryLine(new Label({}, TextStyle::size11, TextColor::secondary)),
      m_summary(summary()),
      m_projects(new SettingsGroup({.header = u"Projects"_s}, {m_empty, m_rows, m_summary}))
{
    add(new SettingsGroup(
        {.header = u"Planning Project"_s,
         .footer =
             u"Pick the folder that holds your planning work — the agent reads projects.toml under this "
             "root and matches each project to notch sessions by path."_s},
        {new PlanningPathRow(model)}));
    add(m_projects);
    renderPage(model, [this] { render(); });
}

/// The row that says why the page lists no projects.
QWidget *PlanningSection::emptyRow()
{
    auto *row = new QWidget;
    auto *layout = rowLayout(m_emptyIcon, rowTexts({m_emptyTitle, m_emptyText}));
    layout->setContentsMargins(Tokens::rowPadding, emptyPaddingVertical, Tokens::rowPadding,
                               emptyPaddingVertical);
    layout->setAlignment(m_emptyIcon, Qt::AlignTop);
    row->setLayout(layout);
    return row;
}

RowList *PlanningSection::projectRows()
{
    return new RowList({
        .make =
            [this](qsizetype index, QWidget *list) {
                return new PlanningProjectRow(m_model.planningProjects.value()[size_t(index)], list);
            },
        .show = [](QWidget *row, qsizetype) { static_cast<PlanningProjectRow *>(row)->render(); },
        .expectedHeights =
            [] { return [height = PlanningProjectRow::expectedHeight()](qsizetype) { return height; }; },
        .textLength =
            [this](qsizetype index) {
                const PlanningProject &project = m_model.planningProjects.value()[size_t(index)];
                return project.name.size() + project.path.size();
            },
    });
}

QWidget *PlanningSection::summary()
{
    auto *refresh = new PushButton(u"Refresh"_s);
    refresh->setIcon(symbolIcon({u"arrow.clockwise"_s, refreshSymbolSize}, textColor(TextColor::primary)));
    connect(refresh, &QPushButton::clicked, this, [this] {
        m_model.refreshPlanningProjects();
        announce(this, u"Refreshed, "_s + summaryLine());
    });
    setDescribes(m_summaryLine, refresh);
    m_refresh = refresh;

    auto *line = new QWidget;
    auto *layout = new QHBoxLayout(line);
    layout->setContentsMargins(Tokens::rowPadding, summaryPaddingVertical, Tokens::rowPadding,
                               summaryPaddingVertical);
    layout->setSpacing(summaryGap);
    layout->addStretch();
    layout->addWidget(m_summaryLine);
    layout->addWidget(refresh);
    return line;
}

void PlanningSection::render()
{
    const std::vector<PlanningProject> &projects = m_model.planningProjects;
    m_projects->setVisible(m_model.planningRoot->has_value());
    m_empty->setVisible(projects.empty());
    renderManifest();
    m_rows->setVisible(!projects.empty());
    m_summary->setVisible(!projects.empty());
    m_summaryLine->setText(summaryLine());
    changeAccessibleDescription(m_refresh, summaryLine());

    std::vector<QUuid> ids(projects.size());
    std::transform(projects.begin(), projects.end(), ids.begin(), std::mem_fn(&PlanningProject::id));
    m_rows->setIds(std::move(ids));
}

/// Does nothing if nothing has changed: the root may be a long text.
void PlanningSection::renderManifest()
{
    const std::optional<QString> &root = m_model.planningRoot;
    const bool isSameRoot = m_manifest && m_manifest->root == root;
    const std::optional<QString> path = isSameRoot ? m_manifest->path : PlanningProjects::tomlPath(root);
    const bool exists = tomlExists(path);
    const bool isEmpty = m_model.planningProjects->empty();
    if (isSameRoot && m_manifest->exists == exists && m_manifest->isEmpty == isEmpty)
        return;
    m_manifest = Manifest{root, path, exists, isEmpty};
    m_projects->setFooter(footerForProjects(exists, path));
    if (isEmpty)
        renderEmpty(exists, path);
}

void PlanningSection::renderEmpty(bool exists, const std::optional<QString> &path)
{
    m_emptyIcon->setSymbol(exists ? u"questionmark.folder"_s : u"doc.badge.ellipsis"_s, SystemColor::gray);
    m_emptyTitle->setText(exists ? u"No projects parsed"_s : u"projects.toml not found"_s);
    m_emptyText->setText(
        exists ? u"The file exists but no [[projects]] entries were found."_s
               : u"Create "_s % path.value_or(u"projects.toml"_s) %
                     u" with [[projects]] blocks listing each project’s name, path, and todo_path."_s);
}

/// Whether there is a root, even an empty one, and anything exists at the manifest's path.
bool PlanningSection::tomlExists(const std::optional<QString> &path) const
{
    return m_model.planningRoot->has_value() &&
           Seam<FileSystem>::current().exists(path.value_or(u"projects.toml"_s));
}

std::optional<QString> PlanningSection::footerForProjects(bool exists, const std::optional<QString> &path)
{
    if (!path)
        return std::nullopt;
    if (exists)
        return u"Reads "_s % *path % u". Session counts come from ~/"_s % SharedFiles::sessions.path % u'.';
    return u"Expected projects.toml at "_s % *path % u'.';
}

QString PlanningSection::summaryLine() const
{
    const std::vector<PlanningProject> &projects = m_model.planningProjects;
    std::int64_t sessions = 0;
    for (const PlanningProject &project : projects) {
        if (qAddOverflow(sessions, project.sessionCount, &sessions))
            qFatal("more sessions than can be counted");
    }
    return counted(std::int64_t(projects.size()), u"project"_s) + u" · "_s +
           counted(sessions, u"matched session"_s);
}
