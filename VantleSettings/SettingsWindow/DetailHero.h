#pragma once

#include "Model/SettingsSection.h"

#include <QWidget>

/// A page's heading: its symbol on a large round tile, its title and its purpose.
class DetailHero : public QWidget
{
    Q_OBJECT

public:
    explicit DetailHero(SettingsSection section, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;

private:
    SettingsSection m_section;
};
