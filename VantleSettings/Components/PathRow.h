#pragma once

#include <QWidget>

class ElidedLabel;

/// A labelled path with a button that copies it.
class PathRow : public QWidget
{
    Q_OBJECT

public:
    explicit PathRow(const QString &label, const QString &path, QWidget *parent = nullptr);

protected:
    void changeEvent(QEvent *event) override;

private:
    ElidedLabel *m_caption;
};
