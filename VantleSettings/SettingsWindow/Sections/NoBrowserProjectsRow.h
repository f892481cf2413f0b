#pragma once

#include <QWidget>

/// What the Browser Patterns page shows before any project is known.
class NoBrowserProjectsRow : public QWidget
{
    Q_OBJECT

public:
    explicit NoBrowserProjectsRow(QWidget *parent = nullptr);
};
