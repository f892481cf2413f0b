#include "Components/SettingsGroup.h"

#include "Components/Drawing/Card.h"
#include "Components/Drawing/Painting.h"
#include "Components/Drawing/Tokens.h"
#include "Components/SettingsRow.h"
#include "Components/Text/Label.h"
#include "Foundation/KeyNames.h"
#include "Platform/Window/Accessibility/AccessibleRole.h"
#include "Platform/Window/Accessibility/AccessibleText.h"

#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>

namespace
{

constexpr int captionPadding = 4;

/// The card and the lines between its rows. The card draws the lines because at fractional scale factors a
/// row that is repainted covers the first pixel of the line below it.
class Card : public QWidget
{
public:
    using QWidget::QWidget;

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        drawCard(painter, rect());
        for (const auto *divider : findChildren<SettingsRowDivider *>()) {
            if (divider->isVisible())
                drawHairline(painter, divider->line().translated(divider->mapTo(this, QPoint())),
                             Tokens::separator());
        }
    }
};

} // namespace

SettingsGroup::SettingsGroup(const Texts &texts, const std::vector<QWidget *> &rows, QWidget *parent)
    : QWidget(parent)
{
    auto *layout = new QVBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(Tokens::groupSpacing);
    if (texts.header) {
        auto *header = new Label(texts.header->toUpper(), TextStyle::groupHeader, TextColor::secondary);
        header->setAccessibleName(*texts.header);
        header->setContentsMargins(captionPadding, 0, captionPadding, 0);
        layout->addWidget(header);
        setAccessibleRole(this, QAccessible::Grouping); // before the name: setting that fixes the role
        setAccessibleName(*texts.header);
    }
    auto *card = new Card;
    m_rows = new QVBoxLayout(card);
    m_rows->setContentsMargins(0, 0, 0, 0);
    m_rows->setSpacing(0);
    layout->addWidget(card);
    m_footer = new WrappedLabel({}, TextStyle::size11, TextColor::secondary);
    setDescribes(m_footer, this);
    m_footer->setContentsMargins(captionPadding, 0, captionPadding, 0);
    layout->addWidget(m_footer);
    setFooter(texts.footer);
    // Only the program's own footers, which have key symbols, come here; those with paths come later.
    changeAccessibleName(m_footer, withKeyNames(m_footer->text()));
    setRows(rows);
}

void SettingsGroup::setFooter(const std::optional<QString> &footer)
{
    m_footer->setVisible(footer.has_value());
    m_footer->setText(footer.value_or(QString()));
    changeAccessibleDescription(this, accessibleText(footer.value_or(QString())));
}

void SettingsGroup::setRows(const std::vector<QWidget *> &rows)
{
    while (QLayoutItem *item = m_rows->takeAt(0)) {
        QWidget *row = item->widget();
        if (std::find(rows.begin(), rows.end(), row) == rows.end())
            row->deleteLater();
        delete item;
    }
    for (QWidget *row : rows)
        m_rows->addWidget(row);
}
