#pragma once

#include "Platform/Desktop/Dialogs.h"

#include <QDialog>

/// The desktop form of a confirmation: the question in bold, its consequences below, Cancel and the action
/// at the trailing end. Return chooses the action, Escape is Cancel.
class ConfirmationDialog : public QDialog
{
    Q_OBJECT

public:
    explicit ConfirmationDialog(const Confirmation &confirmation, QWidget *parent = nullptr);
};
