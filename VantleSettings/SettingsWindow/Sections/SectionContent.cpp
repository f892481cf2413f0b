#include "SettingsWindow/Sections/SectionContent.h"

#include "Components/Drawing/Tokens.h"

#include <QShowEvent>
#include <QVBoxLayout>

SectionContent::SectionContent(QWidget *parent) : QWidget(parent), m_groups(new QVBoxLayout(this))
{
    m_groups->setContentsMargins(0, 0, 0, 0);
    m_groups->setSpacing(Tokens::pageSpacing);
}

void SectionContent::add(QWidget *group)
{
    m_groups->addWidget(group);
}

void SectionContent::addDeferredGroups()
{
}

void SectionContent::showEvent(QShowEvent *event)
{
    QWidget::showEvent(event);
    if (!event->spontaneous())
        Q_EMIT shown();
}
