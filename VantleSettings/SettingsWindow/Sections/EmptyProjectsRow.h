#pragma once

#include <QWidget>

#include <optional>

class Label;
class SidebarIcon;

/// Why the Planning page lists no projects.
class EmptyProjectsRow : public QWidget
{
    Q_OBJECT

public:
    explicit EmptyProjectsRow(QWidget *parent = nullptr);

    /// Whether there is a manifest, and where it is looked for.
    void setManifest(bool tomlExists, const std::optional<QString> &tomlPath);

private:
    SidebarIcon *m_icon;
    Label *m_title;
    Label *m_text;
};
