#pragma once

#include "Model/SettingsSection.h"

#include <QListWidget>

/// The list of pages beside the page.
class Sidebar : public QListWidget
{
    Q_OBJECT

public:
    /// `topMargin` is the height above the sidebar's own margin that stays free, in points.
    explicit Sidebar(int topMargin, QWidget *parent = nullptr);

    SettingsSection selection() const;
    void select(SettingsSection section);

Q_SIGNALS:
    /// An entry is selected, by the user or by `select`.
    void selectionMoved(SettingsSection section);

protected:
    QItemSelectionModel::SelectionFlags selectionCommand(const QModelIndex &index,
                                                         const QEvent *event) const override;
    void changeEvent(QEvent *event) override;
    void keyPressEvent(QKeyEvent *event) override;
    void focusInEvent(QFocusEvent *event) override;
    void focusOutEvent(QFocusEvent *event) override;
    void mousePressEvent(QMouseEvent *event) override;
    void mouseMoveEvent(QMouseEvent *event) override;
    void mouseReleaseEvent(QMouseEvent *event) override;

private:
    void announceCurrentEntry();
    void fitWidth();

    bool m_isPressedBesideEntries = false;
};
