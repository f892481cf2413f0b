#include "Components/PathRow.h"

#include "Components/Buttons.h"
#include "Components/Drawing/Tokens.h"
#include "Components/Text/Label.h"
#include "Foundation/Seam.h"
#include "Platform/Desktop/Pasteboard.h"
#include "Platform/Window/Accessibility/AccessibleRole.h"
#include "Platform/Window/Accessibility/Announcement.h"

#include <QEvent>
#include <QHBoxLayout>

using namespace Qt::StringLiterals;

namespace
{

constexpr int labelColumn = 136;
constexpr int columnGap = 8;
constexpr int paddingVertical = 10;
constexpr qreal copySymbolSize = 11;

} // namespace

PathRow::PathRow(const QString &label, const QString &path, QWidget *parent)
    : QWidget(parent), m_caption(new ElidedLabel(label, TextStyle::size12Medium, TextColor::secondary))
{
    m_caption->setFixedWidth(scaledWithText(labelColumn));
    auto *copy = new IconButton({u"doc.on.doc"_s, copySymbolSize}, u"Copy path"_s);
    copy->setAccessibleName(u"Copy path of %1"_s.arg(label));
    copy->setAccessibleDescription(path);
    connect(copy, &IconButton::clicked, this, [this, path] {
        Seam<Pasteboard>::current().setText(path);
        announce(this, u"Path copied"_s);
    });

    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(Tokens::rowPadding, paddingVertical, Tokens::rowPadding, paddingVertical);
    layout->setSpacing(columnGap);
    auto *pathLabel = new ElidedLabel(path, TextStyle::size11, TextColor::primary80);
    setDescribes(m_caption, copy);
    setDescribes(pathLabel, copy);
    layout->addWidget(m_caption);
    layout->addWidget(pathLabel, 1);
    layout->addWidget(copy);
}

void PathRow::changeEvent(QEvent *event)
{
    QWidget::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        m_caption->setFixedWidth(scaledWithText(labelColumn));
}
