#pragma once

#include "SettingsWindow/Sections/SectionContent.h"

#include <QUuid>

class RowList;
class SettingsModel;

/// The Browser Patterns page: every known project with its URL patterns, edited in the model and written
/// when the user saves.
class BrowserPatternsSection : public SectionContent
{
    Q_OBJECT

public:
    explicit BrowserPatternsSection(SettingsModel &model, QWidget *parent = nullptr);

private:
    RowList *projectRows();
    QWidget *saveLine();
    void render();
    void edit(const QUuid &id, const QString &urls);
    void save();

    SettingsModel &m_model;
    QWidget *m_noProjects;
    RowList *m_rows;
    QWidget *m_save = nullptr;
};
