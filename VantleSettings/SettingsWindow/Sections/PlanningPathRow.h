#pragma once

#include <QWidget>

class ElidedLabel;
class SettingsModel;

/// The planning root, with what can be done about it: show it, clear it, choose another.
class PlanningPathRow : public QWidget
{
    Q_OBJECT

public:
    explicit PlanningPathRow(SettingsModel &model, QWidget *parent = nullptr);

private:
    void render();
    void chooseDirectory();

    SettingsModel &m_model;
    ElidedLabel *m_path;
    ElidedLabel *m_subtitle;
    QWidget *m_reveal;
    QWidget *m_clear;
    QWidget *m_choose;
};
