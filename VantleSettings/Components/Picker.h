#pragma once

#include <QComboBox>

/// A pop-up of a few choices. Its owner reacts to `activated`, which only the user sends. The wheel never
/// changes it, so a page can be scrolled across it.
class Picker : public QComboBox
{
    Q_OBJECT

public:
    explicit Picker(QWidget *parent = nullptr);

    /// Replaces the choices, keeping the index; sends nothing.
    void setEntries(const QStringList &entries);

protected:
    void changeEvent(QEvent *event) override;
    void wheelEvent(QWheelEvent *event) override;

private:
    void fitWidth();
};
