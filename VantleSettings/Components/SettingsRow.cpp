#include "Components/SettingsRow.h"

#include "Components/Drawing/Tokens.h"
#include "Components/RowLayout.h"
#include "Components/SidebarIcon.h"
#include "Components/Text/Label.h"
#include "Platform/Window/Accessibility/AccessibleRole.h"
#include "Platform/Window/Accessibility/AccessibleText.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace
{

constexpr int subtitleLines = 2;
constexpr int dividerInset = Tokens::rowPadding + Tokens::iconTile + Tokens::rowSpacing;

} // namespace

SettingsRow::SettingsRow(const Content &content, QWidget *parent)
    : QWidget(parent),
      m_subtitle(new ElidedLabel({}, TextStyle::size11, TextColor::secondary, subtitleLines)),
      m_accessory(content.accessory)
{
    auto *title = new ElidedLabel(content.title, TextStyle::size13Medium);
    auto *texts = rowTexts({title, m_subtitle});
    texts->insertStretch(0);
    texts->addStretch();
    auto *layout = rowLayout(new SidebarIcon(content.icon, content.tint), texts);
    setLayout(layout);
    if (m_accessory != nullptr) {
        layout->addWidget(m_accessory, 0, Qt::AlignVCenter);
        title->setBuddy(m_accessory);
        if (m_accessory->accessibleName().isEmpty() && m_accessory->focusPolicy() != Qt::NoFocus)
            m_accessory->setAccessibleName(content.title);
        setDescribes(m_subtitle, m_accessory);
    }
    setSubtitle(content.subtitle);
}

void SettingsRow::setSubtitle(const std::optional<QString> &subtitle, const QString &spoken)
{
    m_subtitle->setVisible(subtitle.has_value());
    m_subtitle->setText(subtitle.value_or(QString()));
    if (!spoken.isEmpty())
        changeAccessibleName(m_subtitle, spoken);
    if (m_accessory != nullptr && m_accessory->focusPolicy() != Qt::NoFocus)
        changeAccessibleDescription(m_accessory, accessibleText(subtitle.value_or(QString())));
}

SettingsRowDivider::SettingsRowDivider(QWidget *parent) : QWidget(parent)
{
    setFixedHeight(1);
    markAsDecoration(this);
}

QRectF SettingsRowDivider::line() const
{
    const bool mirrored = layoutDirection() == Qt::RightToLeft;
    return QRectF(rect()).adjusted(mirrored ? 0 : dividerInset, 0, mirrored ? -dividerInset : 0, 0);
}
