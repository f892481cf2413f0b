#include "SettingsWindow/Sections/EmptyProjectsRow.h"

#include "Components/Drawing/Tokens.h"
#include "Components/RowLayout.h"
#include "Components/SidebarIcon.h"
#include "Components/Text/Label.h"

#include <QHBoxLayout>
#include <QStringBuilder>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace
{
constexpr int paddingVertical = 14;
} // namespace

EmptyProjectsRow::EmptyProjectsRow(QWidget *parent)
    : QWidget(parent),
      m_icon(new SidebarIcon(u"doc.badge.ellipsis"_s, SystemColor::gray)),
      m_title(new Label({}, TextStyle::size13Medium)),
      m_text(new WrappedLabel({}, TextStyle::size11, TextColor::secondary))
{
    auto *layout = rowLayout(m_icon, rowTexts({m_title, m_text}));
    layout->setContentsMargins(Tokens::rowPadding, paddingVertical, Tokens::rowPadding, paddingVertical);
    layout->setAlignment(m_icon, Qt::AlignTop);
    setLayout(layout);
}

void EmptyProjectsRow::setManifest(bool tomlExists, const std::optional<QString> &tomlPath)
{
    m_icon->setSymbol(tomlExists ? u"questionmark.folder"_s : u"doc.badge.ellipsis"_s, SystemColor::gray);
    m_title->setText(tomlExists ? u"No projects parsed"_s : u"projects.toml not found"_s);
    m_text->setText(
        tomlExists ? u"The file exists but no [[projects]] entries were found."_s
                   : u"Create "_s % tomlPath.value_or(u"projects.toml"_s) %
                         u" with [[projects]] blocks listing each project’s name, path, and todo_path."_s);
}
