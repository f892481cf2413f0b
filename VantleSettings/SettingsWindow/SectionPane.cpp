#include "SettingsWindow/SectionPane.h"

#include "Components/Drawing/Tokens.h"
#include "Components/Text/TouchScrolling.h"
#include "Foundation/Seam.h"
#include "Platform/Desktop/Appearance/FontRegistry.h"
#include "Platform/Window/Accessibility/AccessibleRole.h"
#include "SettingsWindow/DetailHero.h"
#include "SettingsWindow/Sections/SectionContent.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QVBoxLayout>

namespace
{

constexpr int sidePadding = 32;
constexpr int bottomPadding = 32;

} // namespace

SectionPane::SectionPane(SettingsSection section, SectionContent *content, QWidget *parent)
    : QScrollArea(parent), m_content(content)
{
    setAccessibleRole(this, QAccessible::Grouping);
    setAccessibleName(rawValue(section));
    setAccessibleDescription(subtitle(section));
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);
    new TouchScrolling(this);

    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(sidePadding, 0, sidePadding, bottomPadding);
    layout->setSpacing(Tokens::pageSpacing);
    layout->addWidget(new DetailHero(section));
    layout->addWidget(content);
    layout->addStretch();
    Seam<FontRegistry>::current().finish(); // the first text of the window is measured now
    setWidget(page);
}

void SectionPane::keyPressEvent(QKeyEvent *event)
{
    // Only keys that the control with the focus ignores arrive here.
    QScrollBar &bar = *verticalScrollBar();
    if (event->matches(QKeySequence::MoveToNextPage))
        bar.triggerAction(QScrollBar::SliderPageStepAdd);
    else if (event->matches(QKeySequence::MoveToPreviousPage))
        bar.triggerAction(QScrollBar::SliderPageStepSub);
    else if (event->matches(QKeySequence::MoveToStartOfLine) ||
             event->matches(QKeySequence::MoveToStartOfDocument))
        bar.triggerAction(QScrollBar::SliderToMinimum);
    else if (event->matches(QKeySequence::MoveToEndOfLine) ||
             event->matches(QKeySequence::MoveToEndOfDocument))
        bar.triggerAction(QScrollBar::SliderToMaximum);
    else
        event->ignore();
}
