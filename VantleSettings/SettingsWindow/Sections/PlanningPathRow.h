#pragma once

#include <QWidget>

class ElidedLabel;
class SettingsModel;

/// The planning root, with buttons that reveal it, clear it and choose another. A folder dropped on the row
/// is chosen, too.
class PlanningPathRow : public QWidget
{
    Q_OBJECT

public:
    explicit PlanningPathRow(SettingsModel &model, QWidget *parent = nullptr);

protected:
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dragMoveEvent(QDragMoveEvent *event) override;
    void dragLeaveEvent(QDragLeaveEvent *event) override;
    void dropEvent(QDropEvent *event) override;
    void paintEvent(QPaintEvent *event) override;

private:
    void render();
    void chooseDirectory();
    void showDrop(bool possible);

    SettingsModel &m_model;
    ElidedLabel *m_path;
    ElidedLabel *m_subtitle;
    QWidget *m_reveal;
    QWidget *m_clear;
    QWidget *m_choose;
    bool m_showsDrop = false; ///< while a folder hovers over the row
};
