#include "SettingsWindow/Sections/SectionContent.h"

#include <QHideEvent>
#include <QShowEvent>
#include <QVBoxLayout>

namespace
{
constexpr int groupSpacing = 24;
}

SectionContent::SectionContent(QWidget *parent) : QWidget(parent), m_groups(new QVBoxLayout(this))
{
    m_groups->setContentsMargins(0, 0, 0, 0);
    m_groups->setSpacing(groupSpacing);
}

void SectionContent::add(QWidget *group)
{
    m_groups->addWidget(group);
}

void SectionContent::addLowerGroups()
{
}

void SectionContent::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!event->spontaneous())
        Q_EMIT shown();
}

void SectionContent::hideEvent(QHideEvent *event)
{
    QWidget::hideEvent(event);
    if (!event->spontaneous())
        Q_EMIT hidden();
}
