#include "SettingsWindow/SettingsRootView.h"

#include "Components/Drawing/Painting.h"
#include "Components/Drawing/Tokens.h"
#include "Model/SettingsModel.h"
#include "Platform/Window/Accessibility/AccessibleRole.h"
#include "Platform/Window/FirstFrame.h"
#include "SettingsWindow/SectionPane.h"
#include "SettingsWindow/Sections/AboutSection.h"
#include "SettingsWindow/Sections/BrowserPatternsSection.h"
#include "SettingsWindow/Sections/DataSection.h"
#include "SettingsWindow/Sections/GeneralSection.h"
#include "SettingsWindow/Sections/PlanningSection.h"
#include "SettingsWindow/Sidebar.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QStackedWidget>

namespace
{

SectionContent *makeContent(SettingsSection section, SettingsModel &model)
{
    switch (section) {
    case SettingsSection::general:
        return new GeneralSection(model);
    case SettingsSection::planning:
        return new PlanningSection(model);
    case SettingsSection::browser:
        return new BrowserPatternsSection(model);
    case SettingsSection::data:
        return new DataSection(model);
    case SettingsSection::about:
        return new AboutSection;
    }
    Q_UNREACHABLE();
}

/// The line between the sidebar and the page.
class Separator : public QWidget
{
public:
    Separator()
    {
        setFixedWidth(1);
        markAsDecoration(this);
    }

protected:
    void paintEvent(QPaintEvent *) override
    {
        QPainter painter(this);
        painter.fillRect(rect(), Tokens::sidebarBackground);
        drawVerticalHairline(painter, rect(), Tokens::separator());
    }
};

} // namespace

SettingsRootView::SettingsRootView(SettingsModel &model, int titleBarHeight, QWidget *parent)
    : QWidget(parent), m_model(model), m_sidebar(new Sidebar(titleBarHeight)), m_detail(new QStackedWidget)
{
    auto *layout = new QHBoxLayout(this);
    layout->setContentsMargins(0, 0, 0, 0);
    layout->setSpacing(0);
    layout->addWidget(m_sidebar);
    layout->addWidget(new Separator);
    layout->addWidget(m_detail, 1);
    QPalette colors = palette();
    colors.setColor(QPalette::Window, Tokens::windowBackground);
    setPalette(colors);
    setAutoFillBackground(true);

    connect(m_sidebar, &Sidebar::selectionMoved, this, [this](SettingsSection section) {
        if (section != m_model.section)
            m_model.section = section;
    });
    renderOnChange(this, model, [this] { showSelectedPage(); });
}

void SettingsRootView::showSelectedPage()
{
    m_sidebar->select(m_model.section);
    m_detail->setCurrentWidget(page(m_model.section));
}

SectionPane *SettingsRootView::page(SettingsSection section)
{
    SectionPane *&pane = m_pages[section];
    if (!pane) {
        SectionContent *content = makeContent(section, m_model);
        pane = new SectionPane(section, content);
        m_detail->addWidget(pane);
        afterFirstFrame(*content, [content] { content->addDeferredGroups(); });
    }
    return pane;
}

bool SettingsRootView::focusNextPrevChild(bool next)
{
    const bool moved = QWidget::focusNextPrevChild(next);
    QWidget *focused = window()->focusWidget();
    SectionPane *pane = page(m_model.section);
    if (moved && pane->isAncestorOf(focused))
        pane->ensureWidgetVisible(focused);
    return moved;
}
