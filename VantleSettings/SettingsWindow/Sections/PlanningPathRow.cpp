#include "SettingsWindow/Sections/PlanningPathRow.h"

#include "Components/Buttons.h"
#include "Components/Label.h"
#include "Components/SidebarIcon.h"
#include "Components/Tokens.h"
#include "Foundation/Seam.h"
#include "Model/SettingsModel.h"
#include "Platform/Desktop/Dialogs.h"
#include "Platform/Desktop/Workspace.h"
#include "Platform/Files/Path.h"
#include "Platform/Window/AccessibleRole.h"
#include "Platform/Window/AccessibleText.h"

#include <QHBoxLayout>
#include <QPointer>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace
{

constexpr int lineGap = 2;
constexpr qreal revealSymbolSize = 11;

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
    const QString folder = Path::lastComponent(root.value_or(QString()));
    return folder.isEmpty() ? std::nullopt : std::optional(u"Selected folder: "_s + folder);
}

} // namespace

PlanningPathRow::PlanningPathRow(SettingsModel &model, QWidget *parent)
    : QWidget(parent),
      m_model(model),
      m_path(new ElidedLabel({}, TextStyle::size13Medium)),
      m_subtitle(new ElidedLabel({}, TextStyle::size11, TextColor::secondary))
{
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

    auto *texts = new QVBoxLayout;
    texts->setSpacing(lineGap);
    texts->addWidget(m_path);
    texts->addWidget(m_subtitle);

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(Tokens::rowPadding, Tokens::rowPaddingVertical, Tokens::rowPadding,
                               Tokens::rowPaddingVertical);
    layout->setSpacing(Tokens::rowSpacing);
    layout->addWidget(new SidebarIcon(u"folder.fill"_s, SystemColor::green), 0, Qt::AlignVCenter);
    layout->addLayout(texts, 1);
    layout->addWidget(reveal);
    layout->addWidget(clear);
    layout->addWidget(choose);

    connect(reveal, &QPushButton::clicked, this,
            [&model] { Seam<Workspace>::current().reveal(model.planningRoot->value_or(QString())); });
    connect(clear, &QPushButton::clicked, this, [&model] { model.setPlanningRoot(std::nullopt); });
    connect(choose, &QPushButton::clicked, this, &PlanningPathRow::chooseDirectory);
    ::render(this, model, [this] { render(); });
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
