#pragma once

#include "Components/Text/PatternsEditor.h"
#include "SettingsWindow/Sections/SectionContent.h"

#include <QUuid>

#include <map>
#include <memory>

class RowList;
class SettingsModel;

/// The Browser Patterns page: every known project with its URL patterns, edited in the model and written
/// when the user saves.
class BrowserPatternsSection : public SectionContent
{
    Q_OBJECT

public:
    explicit BrowserPatternsSection(SettingsModel &model, QWidget *parent = nullptr);
    ~BrowserPatternsSection() override;

private:
    RowList *projectRows();
    QWidget *saveLine();
    void render();
    void forgetEditStates();
    void edit(const QUuid &id, const QString &urls);
    void save();

    SettingsModel &m_model;
    QWidget *m_noProjects;
    RowList *m_rows;
    QWidget *m_save = nullptr;
    /// What the user has done in editors that are out of view.
    std::map<QUuid, std::unique_ptr<PatternsEditor::EditState>> m_editStates;
};
