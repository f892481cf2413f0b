#pragma once

#include "Persistence/BrowserConfigProject.h"

#include <QWidget>

#include <functional>

class PatternsEditor;

/// A project on the Browser Patterns page: its folder, and an editor for its patterns.
class ProjectRow : public QWidget
{
    Q_OBJECT

public:
    explicit ProjectRow(const BrowserConfigProject &project, QWidget *parent = nullptr);

    /// Returns the function from a project, none of whose patterns wraps, to the height of its row in points
    /// with the present fonts.
    static std::function<int(const BrowserConfigProject &project)> expectedHeight();

    PatternsEditor &editor() const { return *m_editor; }

private:
    PatternsEditor *m_editor;
};
