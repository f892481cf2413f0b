#pragma once

#include "Persistence/BrowserConfigProject.h"

#include <QWidget>

class PatternsEditor;

/// A project on the Browser Patterns page: its folder, and an editor for its patterns.
class ProjectRow : public QWidget
{
    Q_OBJECT

public:
    explicit ProjectRow(const BrowserConfigProject &project, QWidget *parent = nullptr);

    /// The height of a project's row where none of its patterns wraps.
    static int expectedHeight(const BrowserConfigProject &project);

    const QUuid &id() const { return m_id; }
    PatternsEditor &editor() const { return *m_editor; }

private:
    QUuid m_id;
    PatternsEditor *m_editor;
};
