#include "SettingsWindow/SectionPane.h"

#include "Platform/AccessibleRole.h"
#include "SettingsWindow/Components/Tokens.h"
#include "SettingsWindow/DetailHero.h"
#include "SettingsWindow/SectionContent.h"

#include <QKeyEvent>
#include <QScrollBar>
#include <QVBoxLayout>

using namespace Qt::StringLiterals;

namespace
{

constexpr int sidePadding = 32;
constexpr int bottomPadding = 32;

} // namespace

QString symbol(SettingsSection section)
{
    switch (section) {
    case SettingsSection::general:
        return u"gearshape.fill"_s;
    case SettingsSection::planning:
        return u"checklist"_s;
    case SettingsSection::browser:
        return u"globe"_s;
    case SettingsSection::data:
        return u"internaldrive.fill"_s;
    case SettingsSection::about:
        return u"info"_s;
    }
    Q_UNREACHABLE();
}

QString subtitle(SettingsSection section)
{
    switch (section) {
    case SettingsSection::general:
        return u"Configure how the notch agent launches and the global shortcuts it listens for."_s;
    case SettingsSection::planning:
        return u"Point the agent at the folder where your planning work lives."_s;
    case SettingsSection::browser:
        return u"Match browser tabs to the project that owns them so ⇧⌘L opens the right page."_s;
    case SettingsSection::data:
        return u"Clear persisted sessions and browser patterns, or remove the Claude/Codex hooks Vantle "
               u"installed. "
               u"These actions cannot be undone."_s;
    case SettingsSection::about:
        return u"Build information and the paths the agent reads and writes."_s;
    }
    Q_UNREACHABLE();
}

SectionPane::SectionPane(SettingsSection section, SectionContent *content, QWidget *parent)
    : QScrollArea(parent), m_content(content)
{
    setAccessibleRole(this, QAccessible::Pane);
    setAccessibleName(rawValue(section));
    setAccessibleDescription(subtitle(section));
    setFrameShape(QFrame::NoFrame);
    setFocusPolicy(Qt::NoFocus);
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    setWidgetResizable(true);

    auto *page = new QWidget;
    auto *layout = new QVBoxLayout(page);
    layout->setContentsMargins(sidePadding, 0, sidePadding, bottomPadding);
    layout->setSpacing(Tokens::pageSpacing);
    layout->addWidget(new DetailHero(section));
    layout->addWidget(content);
    layout->addStretch();
    setWidget(page);
}

void SectionPane::keyPressEvent(QKeyEvent *event)
{
    // Keys arrive here when the control with the focus has no use for them.
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
