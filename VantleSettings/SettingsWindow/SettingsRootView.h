#pragma once

#include "Model/SettingsSection.h"

#include <QWidget>

#include <map>

class QStackedWidget;
class SectionPane;
class SettingsModel;
class Sidebar;

/// The window's content: the sidebar and, beside it, the selected page. A page is created when it is first
/// shown, and then kept.
class SettingsRootView : public QWidget
{
    Q_OBJECT

public:
    /// `titleBarHeight` is the height that the system's window buttons take at the top of the content, in
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
