#pragma once

#include "PlanningProjects/PlanningProject.h"

#include <QWidget>

#include <optional>

class Label;
class QMenu;
class SidebarIcon;

/// A project of the planning manifest: its folder, its session count, and a menu of what can be done with it.
class PlanningProjectRow : public QWidget
{
    Q_OBJECT

public:
    explicit PlanningProjectRow(const PlanningProject &project, QWidget *parent = nullptr);

    /// The height of a row whose folder is there; a word about a missing one may need a little more.
    static int expectedHeight();

    /// Looks again whether the project's folder is there.
    void render();

private:
    bool exists() const;
    void fillActionMenu(QMenu &menu);

    PlanningProject m_project;
    std::optional<bool> m_exists; ///< as shown
    SidebarIcon *m_icon;
    QWidget *m_missing;
    QWidget *m_badge;
    QWidget *m_actions;
};
