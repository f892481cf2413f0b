#pragma once

#include <QComboBox>

/// A pop-up of a few choices. Its owner reacts to `activated`, which only a choice by the user emits. The
/// wheel never changes it, so a page can be scrolled while the pointer is over it.
class Picker : public QComboBox
{
    Q_OBJECT

public:
    explicit Picker(QWidget *parent = nullptr);

    /// Replaces the choices, keeping the index if it still exists. Emits no signal.
    void setEntries(const QStringList &entries);

protected:
    void changeEvent(QEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void fitWidth();
};
