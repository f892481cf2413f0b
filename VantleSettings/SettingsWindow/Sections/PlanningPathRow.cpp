#include "SettingsWindow/Sections/PlanningPathRow.h"

#include "Components/Buttons.h"
#include "Components/Drawing/Painting.h"
#include "Components/Drawing/Tokens.h"
#include "Components/RowLayout.h"
#include "Components/SidebarIcon.h"
#include "Components/Text/Label.h"
#include "Foundation/Seam.h"
#include "Model/SettingsModel.h"
#include "Platform/Desktop/Appearance/Palette.h"
#include "Platform/Desktop/Dialogs.h"
#include "Platform/Desktop/Workspace.h"
#include "Platform/Files/FileSystem.h"
#include "Platform/Files/Path.h"
#include "Platform/Window/Accessibility/AccessibleRole.h"
#include "Platform/Window/Accessibility/AccessibleText.h"

#include <QDropEvent>
#include <QHBoxLayout>
#include <QMimeData>
#include <QPainter>
#include <QPointer>
#include <QStringBuilder>
#include <QUrl>
#include <QVBoxLayout>

#include <utility>

using namespace Qt::StringLiterals;

namespace
{

constexpr qreal revealSymbolSize = 11;
constexpr float dropFillOpacity = 0.25F;

bool isSet(const std::optional<QString> &root)
{
    return root && !root->isEmpty();
}

QString displayPath(const std::optional<QString> &root)
{
    return isSet(root) ? root.value_or(QString()) : u"Not set"_s;
}

std::optional<QString> subtitle(const std::optional<QString> &root)
{
    if (!isSet(root))
        return u"Click Choose… to point at a folder on disk."_s;
    const QString path = root.value_or(QString());
    const QStringView folder = Path::lastComponent(path);
    return folder.isEmpty() ? std::nullopt : std::optional<QString>(u"Selected folder: "_s % folder);
}

/// The dragged folder; nothing for a file, for several items, or for a folder on another machine.
std::optional<QString> draggedFolder(const QMimeData &data)
{
    const QList<QUrl> dragged = data.urls();
    if (dragged.size() != 1 || !dragged.constFirst().isLocalFile())
        return std::nullopt;
    const QString path = dragged.constFirst().adjusted(QUrl::StripTrailingSlash).toLocalFile();
    return Seam<FileSystem>::current().isDirectory(path) ? std::optional(path) : std::nullopt;
}

/// The drop action to report to the program that the folder comes from: never a move, after which that
/// program could delete the folder.
Qt::DropAction harmlessAction(Qt::DropActions possible)
{
    for (const Qt::DropAction action : {Qt::LinkAction, Qt::CopyAction}) {
        if (possible & action)
            return action;
    }
    return Qt::IgnoreAction;
}

/// Accepts the drag or drop if it is one of a folder, and returns the folder.
std::optional<QString> accepted(QDropEvent &event)
{
    std::optional<QString> folder = draggedFolder(*event.mimeData());
    const Qt::DropAction action = harmlessAction(event.possibleActions());
    // During the drag, setting IgnoreAction would forbid the drop.
    if (action != Qt::IgnoreAction || event.type() == QEvent::Drop)
        event.setDropAction(action);
    event.setAccepted(folder.has_value());
    return folder;
}

} // namespace

PlanningPathRow::PlanningPathRow(SettingsModel &model, QWidget *parent)
    : QWidget(parent),
      m_model(model),
      m_path(new ElidedLabel({}, TextStyle::size13Medium)),
      m_subtitle(new ElidedLabel({}, TextStyle::size11, TextColor::secondary))
{
    setAcceptDrops(true);
    auto *reveal = new IconButton({u"arrow.up.forward.app"_s, revealSymbolSize}, u"Reveal in Finder"_s);
    auto *clear = new PushButton(u"Clear"_s);
    clear->setAccessibleName(u"Clear planning root"_s);
    auto *choose = new PushButton(u"Choose…"_s);
    choose->setAccessibleName(u"Choose planning root…"_s);
    clickOn(Qt::CTRL | Qt::Key_O, choose);
    m_reveal = reveal;
    m_clear = clear;
    m_choose = choose;
    setDescribes(m_path, choose);
    setDescribes(m_subtitle, choose);

    setLayout(rowLayout(new SidebarIcon(u"folder.fill"_s, SystemColor::green), rowTexts({m_path, m_subtitle}),
                        {reveal, clear, choose}));

    connect(reveal, &QPushButton::clicked, this,
            [&model] { Seam<Workspace>::current().reveal(model.planningRoot->value_or(QString())); });
    connect(clear, &QPushButton::clicked, this, [&model] { model.setPlanningRoot(std::nullopt); });
    connect(choose, &QPushButton::clicked, this, &PlanningPathRow::chooseDirectory);
    renderOnChange(this, model, [this] { render(); });
}

void PlanningPathRow::render()
{
    const std::optional<QString> &root = m_model.planningRoot;
    m_path->setText(displayPath(root));
    m_path->setTextColor(root ? TextColor::primary : TextColor::secondary);
    const std::optional<QString> below = subtitle(root);
    m_subtitle->setText(below.value_or(QString()));
    m_subtitle->setVisible(below.has_value());
    changeAccessibleDescription(m_reveal, accessibleText(displayPath(root)));
    changeAccessibleDescription(m_choose, isSet(root) ? QString() : displayPath(root));
    m_reveal->setVisible(isSet(root));
    m_clear->setVisible(isSet(root));
}

void PlanningPathRow::chooseDirectory()
{
    const std::optional<QString> &root = m_model.planningRoot;
    const QPointer<PlanningPathRow> row(this);
    const std::optional<QString> folder = Seam<Dialogs>::current().chooseDirectory(
        {.title = u"Planning Project Folder"_s,
         .message = u"Select the folder that holds your planning work."_s,
         .prompt = u"Choose"_s,
         .start = isSet(root) ? root : std::nullopt});
    if (folder && row)
        m_model.setPlanningRoot(folder);
}

void PlanningPathRow::dragEnterEvent(QDragEnterEvent *event)
{
    showDrop(accepted(*event).has_value());
}

void PlanningPathRow::dragMoveEvent(QDragMoveEvent *event)
{
    showDrop(accepted(*event).has_value());
}

void PlanningPathRow::dragLeaveEvent(QDragLeaveEvent *)
{
    showDrop(false);
}

void PlanningPathRow::dropEvent(QDropEvent *event)
{
    showDrop(false);
    if (const std::optional<QString> folder = accepted(*event))
        m_model.setPlanningRoot(folder);
}

void PlanningPathRow::showDrop(bool possible)
{
    if (std::exchange(m_showsDrop, possible) != possible)
        update();
}

// The row fills its card, so it is highlighted with the card's corners.
void PlanningPathRow::paintEvent(QPaintEvent *)
{
    if (!m_showsDrop)
        return;
    QColor tint = accentColor();
    tint.setAlphaF(dropFillOpacity);
    QPainter painter(this);
    fillShape(painter, continuousRectangle(rect(), Tokens::cardRadius), tint);
}
