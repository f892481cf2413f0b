#pragma once

#include <QWidget>

/// The program's tile beside its name, what it is, and its version.
class AboutHero : public QWidget
{
    Q_OBJECT

public:
    explicit AboutHero(const QString &version, QWidget *parent = nullptr);

protected:
    void paintEvent(QPaintEvent *event) override;
};
