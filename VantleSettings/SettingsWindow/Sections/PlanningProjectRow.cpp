#include "SettingsWindow/Sections/PlanningProjectRow.h"

#include "Components/Drawing/Painting.h"
#include "Components/MenuButton.h"
#include "Components/RowLayout.h"
#include "Components/SessionCountBadge.h"
#include "Components/SidebarIcon.h"
#include "Components/Text/Label.h"
#include "Foundation/Seam.h"
#include "Platform/Desktop/Pasteboard.h"
#include "Platform/Desktop/Workspace.h"
#include "Platform/Files/FileSystem.h"
#include "Platform/Window/Accessibility/AccessibleRole.h"
#include "Platform/Window/Accessibility/AccessibleText.h"
#include "Platform/Window/Accessibility/Announcement.h"

#include <QHBoxLayout>
#include <QMenu>
#include <QPainter>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr int nameGap = 6;
constexpr qreal actionsSymbolSize = 13;
constexpr int missingPadding = 6;
constexpr int missingPaddingVertical = 2;
constexpr float missingFillOpacity = 0.18F;

/// The small capsule beside the name of a project whose folder is gone.
class MissingLabel : public Label
{
public:
    MissingLabel() : Label(u"missing"_s, TextStyle::size10)
    {
        setContentsMargins(missingPadding, missingPaddingVertical, missingPadding, missingPaddingVertical);
        setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    }

protected:
    void paintEvent(QPaintEvent *event) override
    {
        QPainter painter(this);
        QColor background = textColor(TextColor::secondary);
        background.setAlphaF(background.alphaF() * missingFillOpacity);
        fillShape(painter, capsule(rect()), background);
        painter.end();
        Label::paintEvent(event);
    }
};

} // namespace

PlanningProjectRow::PlanningProjectRow(const PlanningProject &project, QWidget *parent)
    : QWidget(parent),
      m_project(project),
      m_icon(new SidebarIcon({}, SystemColor::gray)),
      m_missing(new MissingLabel)
{
    setAccessibleRole(this, QAccessible::Grouping);
    setAccessibleName(accessibleText(project.name));

    auto *name = new QHBoxLayout;
    name->setSpacing(nameGap);
    auto *nameLabel = new ElidedLabel(project.name, TextStyle::size13);
    auto *pathLabel = new ElidedLabel(project.path, TextStyle::size11, TextColor::secondary);
    auto *badge = new SessionCountBadge(project.sessionCount);
    name->addWidget(nameLabel);
    name->addWidget(m_missing);
    name->addStretch();

    auto *texts = rowTexts({pathLabel});
    texts->insertLayout(0, name);

    auto *actions = new MenuButton({u"ellipsis.circle"_s, actionsSymbolSize});
    changeAccessibleNameParts(actions, {u"Actions for "_s, project.name});
    m_actions = actions;
    m_badge = badge;
    for (QWidget *text : std::initializer_list<QWidget *>{nameLabel, m_missing, pathLabel, badge})
        setDescribes(text, actions);
    connect(actions, &MenuButton::menuNeeded, this, &PlanningProjectRow::fillActionMenu);

    setLayout(rowLayout(m_icon, texts, {badge, actions}));
    render();
}

int PlanningProjectRow::expectedHeight()
{
    return rowHeight(TextStyle::size13, TextStyle::size11);
}

bool PlanningProjectRow::exists() const
{
    return m_project.existsOverride.value_or(Seam<FileSystem>::current().isDirectory(m_project.path));
}

void PlanningProjectRow::render()
{
    const bool there = exists();
    if (std::exchange(m_exists, there) == there)
        return; // nothing else changes
    m_icon->setSymbol(there ? u"folder.fill"_s : u"folder.badge.questionmark"_s,
                      there ? SystemColor::green : SystemColor::gray);
    m_missing->setVisible(!there);
    QStringList description{m_project.path};
    if (!there)
        description.append(u", missing"_s);
    changeAccessibleDescriptionParts(this, description);
    changeAccessibleDescriptionParts(m_actions, description << u", "_s << m_badge->accessibleName());
}

/// Adds the items for what exists at this moment; it may be gone when an item is chosen.
void PlanningProjectRow::fillActionMenu(QMenu &menu)
{
    render();
    const QString path = m_project.path;
    const QString todo = m_project.todoPath;
    if (exists())
        menu.addAction(u"Reveal Project in Finder"_s, [path] { Seam<Workspace>::current().reveal(path); });
    if (!todo.isEmpty() && Seam<FileSystem>::current().exists(todo)) {
        menu.addAction(u"Open TODO.toml"_s, [todo] { Seam<Workspace>::current().open(todo); });
        menu.addAction(u"Reveal TODO in Finder"_s, [todo] { Seam<Workspace>::current().reveal(todo); });
    }
    menu.addAction(u"Copy Path"_s, this, [this, path] {
        Seam<Pasteboard>::current().setText(path);
        announce(this, u"Path copied"_s);
    });
}
