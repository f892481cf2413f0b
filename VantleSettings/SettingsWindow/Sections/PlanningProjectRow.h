#pragma once

#include "PlanningProjects/PlanningProject.h"

#include <QWidget>

#include <optional>

class Label;
class QMenu;
class SidebarIcon;

/// A project of the planning manifest: its folder, its session count, and a menu of actions.
class PlanningProjectRow : public QWidget
{
    Q_OBJECT

public:
    explicit PlanningProjectRow(const PlanningProject &project, QWidget *parent = nullptr);

    /// The height of a row whose folder exists, in points. The label of a missing one may need a little more.
    static int expectedHeight();

    /// Updates the row according to whether the project's folder exists.
    void render();

private:
    bool exists() const;
    void fillActionMenu(QMenu &menu);

    PlanningProject m_project;
    std::optional<bool> m_exists; ///< whether the folder exists, as shown
    SidebarIcon *m_icon;
    QWidget *m_missing;
    QWidget *m_badge;
    QWidget *m_actions;
};
