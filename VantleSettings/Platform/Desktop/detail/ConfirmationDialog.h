#pragma once

#include "Platform/Desktop/Dialogs.h"

#include <QDialog>

class QLabel;

/// The desktop form of a confirmation: the question in bold, its consequences below, Cancel and the action
/// at the trailing end. Return chooses the action, Escape is Cancel. It follows the text size while it is
/// open.
///
/// QMessageBox is not used: it chooses the width of its texts by the screen's width, and Return presses the
/// button with the focus.
class ConfirmationDialog : public QDialog
{
    Q_OBJECT

public:
    explicit ConfirmationDialog(const Confirmation &confirmation, QWidget *parent = nullptr);

protected:
    bool event(QEvent *event) override;

private:
    void fitToText();

    QLabel *m_message;
    QLabel *m_informative;
};
