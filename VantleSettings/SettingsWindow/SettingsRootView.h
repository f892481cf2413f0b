#pragma once

#include "Model/SettingsSection.h"

#include <QWidget>

#include <map>

class QStackedWidget;
class SectionPane;
class SettingsModel;
class Sidebar;

/// All that the window shows: the sidebar, and beside it the selected page. A page is built when it is first
/// shown and stays from then on.
class SettingsRootView : public QWidget
{
    Q_OBJECT

public:
    /// `titleBarHeight` is the height of what the system's window buttons take of the window's top, in
    /// points.
    explicit SettingsRootView(SettingsModel &model, int titleBarHeight, QWidget *parent = nullptr);

protected:
    bool focusNextPrevChild(bool next) override;

private:
    void showSelectedPage();
    SectionPane *page(SettingsSection section);

    SettingsModel &m_model;
    Sidebar *m_sidebar;
    QStackedWidget *m_detail;
    std::map<SettingsSection, SectionPane *> m_pages;
};
