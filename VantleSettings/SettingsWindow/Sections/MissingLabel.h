#pragma once

#include "Components/Text/Label.h"

/// The small capsule beside the name of a project whose folder is gone.
class MissingLabel : public Label
{
    Q_OBJECT

public:
    explicit MissingLabel(QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};
