#include "SettingsWindow/Sections/BrowserPatternsSection.h"

#include "Components/Buttons.h"
#include "Components/Drawing/Tokens.h"
#include "Components/RowList.h"
#include "Components/SettingsGroup.h"
#include "Components/Text/Label.h"
#include "Components/Text/PatternsEditor.h"
#include "Model/SettingsModel.h"
#include "Platform/Desktop/Appearance/Symbol.h"
#include "Platform/Window/Accessibility/AccessibleRole.h"
#include "Platform/Window/Accessibility/Announcement.h"
#include "SettingsWindow/Sections/ProjectRow.h"

#include <QHBoxLayout>
#include <QPainter>

#include <algorithm>
#include <functional>
#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr int noProjectsPaddingVertical = 14;
constexpr int noProjectsGap = 8;
constexpr qreal noProjectsSymbolSize = 13;

/// A symbol in the secondary colour beside a text. Decoration: not in the accessibility tree.
class SymbolLabel : public QWidget
{
public:
    explicit SymbolLabel(Symbol symbol) : m_symbol(std::move(symbol))
    {
        setFixedSize(symbolExtent(m_symbol.pointSize), symbolExtent(m_symbol.pointSize));
        markAsDecoration(this);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        drawSymbol(painter, m_symbol, rect(), textColor(TextColor::secondary));
    }

private:
    const Symbol m_symbol;
};

/// The row that the page shows while no project is known.
QWidget *noProjectsRow()
{
    auto *row = new QWidget;
    auto *layout = new QHBoxLayout(row);
    layout->setContentsMargins(Tokens::rowPadding, noProjectsPaddingVertical, Tokens::rowPadding,
                               noProjectsPaddingVertical);
    layout->setSpacing(noProjectsGap);
    layout->addWidget(new SymbolLabel({u"tray"_s, noProjectsSymbolSize}), 0, Qt::AlignTop);
    layout->addWidget(
        new WrappedLabel(u"No projects yet — a project is added here the first time Vantle sees "
                         "a notification from one."_s,
                         TextStyle::size12),
        1);
    return row;
}

} // namespace

BrowserPatternsSection::BrowserPatternsSection(SettingsModel &model, QWidget *parent)
    : SectionContent(parent), m_model(model), m_noProjects(noProjectsRow()), m_rows(projectRows())
{
    add(new SettingsGroup(
        {.header = u"URL Patterns"_s,
         .footer =
             u"One pattern per line. Use * as wildcard. Tabs matching any pattern appear in the browser "
             "picker when that project is the active notification."_s},
        {m_noProjects, m_rows}));
    add(saveLine());
    renderPage(model, [this] { render(); });
}

RowList *BrowserPatternsSection::projectRows()
{
    const auto project = [this](qsizetype index) -> const BrowserConfigProject & {
        return m_model.projects.value()[size_t(index)];
    };
    return new RowList({
        .make =
            [this, project](qsizetype index, QWidget *list) {
                auto *row = new ProjectRow(project(index), list);
                connect(&row->editor(), &PatternsEditor::edited, this,
                        [this, id = project(index).id](const QString &urls) { edit(id, urls); });
                return row;
            },
        .show =
            [project](QWidget *row, qsizetype index) {
                static_cast<ProjectRow *>(row)->editor().setText(project(index).urls);
            },
        .expectedHeights =
            [project] {
                return [project, height = ProjectRow::expectedHeight()](qsizetype index) {
                    return height(project(index));
                };
            },
        .textLength =
            [project](qsizetype index) { return project(index).root.size() + project(index).urls.size(); },
        .mustKeep =
            [](const QWidget *row) { return static_cast<const ProjectRow *>(row)->editor().isTouched(); },
    });
}

QWidget *BrowserPatternsSection::saveLine()
{
    auto *save = new PushButton(u"Save Patterns"_s, PushButton::Size::large);
    clickOn(Qt::CTRL | Qt::Key_S, save);
    connect(save, &QPushButton::clicked, this, &BrowserPatternsSection::save);
    m_save = save;

    auto *line = new QWidget;
    auto *layout = new QHBoxLayout(line);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->addStretch();
    layout->addWidget(save);
    return line;
}

void BrowserPatternsSection::render()
{
    const std::vector<BrowserConfigProject> &projects = m_model.projects;
    std::vector<QUuid> ids(projects.size());
    std::transform(projects.begin(), projects.end(), ids.begin(), std::mem_fn(&BrowserConfigProject::id));
    m_noProjects->setVisible(projects.empty());
    m_rows->setVisible(!projects.empty());
    m_rows->setIds(std::move(ids));
    m_save->setEnabled(!projects.empty());
}

void BrowserPatternsSection::edit(const QUuid &id, const QString &urls)
{
    m_model.projects.modify([&](std::vector<BrowserConfigProject> &projects) {
        const auto project = std::find_if(projects.begin(), projects.end(),
                                          [&](const BrowserConfigProject &each) { return each.id == id; });
        if (project != projects.end())
            project->urls = urls;
    });
}

void BrowserPatternsSection::save()
{
    m_model.saveBrowserPatterns(Persistence::browserPatterns(m_model.projects));
    announce(this, u"Patterns saved"_s);
}
