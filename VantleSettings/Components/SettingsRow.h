#pragma once

#include "Foundation/SystemColor.h"

#include <QWidget>

#include <optional>

class ElidedLabel;

/// A row of a card: tile, title over subtitle, and a control at the trailing end. The control takes its name
/// from the title and its description from the subtitle.
class SettingsRow : public QWidget
{
    Q_OBJECT

public:
    struct Content {
        QString icon;
        SystemColor tint = SystemColor::gray;
        QString title;
        std::optional<QString> subtitle = {};
        QWidget *accessory = nullptr;
    };

    explicit SettingsRow(const Content &content, QWidget *parent = nullptr);

    /// `spoken` is the subtitle for screen readers where it has key symbols: with words instead of them.
    void setSubtitle(const std::optional<QString> &subtitle, const QString &spoken = {});

private:
    ElidedLabel *m_subtitle;
    QWidget *m_accessory;
};

/// The space for the line between two rows; the card draws the line. Decoration: not in the accessibility
/// tree.
class SettingsRowDivider : public QWidget
{
    Q_OBJECT

public:
    explicit SettingsRowDivider(QWidget *parent = nullptr);

    /// The line within this widget; it starts where the rows' texts do.
    QRectF line() const;
};
