#pragma once

#include "SettingsWindow/Sections/SectionContent.h"

#include <optional>

class Label;
class RowList;
class SettingsGroup;
class SettingsModel;
class SidebarIcon;

/// The Planning page: the planning root and the projects of its manifest.
class PlanningSection : public SectionContent
{
    Q_OBJECT

public:
    explicit PlanningSection(SettingsModel &model, QWidget *parent = nullptr);

private:
    /// The state of the manifest that is shown.
    struct Manifest {
        std::optional<QString> root;
        std::optional<QString> path;
        bool exists = false;
        bool isEmpty = false; ///< it holds no projects
    };

    QWidget *emptyRow();
    RowList *projectRows();
    QWidget *summary();
    void render();
    void renderManifest();
    void renderEmpty(bool exists, const std::optional<QString> &path);
    bool tomlExists(const std::optional<QString> &path) const;
    static std::optional<QString> footerForProjects(bool exists, const std::optional<QString> &path);
    QString summaryLine() const;

    SettingsModel &m_model;
    std::optional<Manifest> m_manifest;
    SidebarIcon *m_emptyIcon;
    Label *m_emptyTitle;
    Label *m_emptyText;
    QWidget *m_empty;
    RowList *m_rows;
    Label *m_summaryLine;
    QWidget *m_refresh = nullptr;
    QWidget *m_summary;
    SettingsGroup *m_projects;
};
