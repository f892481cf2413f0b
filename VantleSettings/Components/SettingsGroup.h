#pragma once

#include <QWidget>

#include <optional>
#include <vector>

class QVBoxLayout;
class WrappedLabel;

/// A titled card with rows, and a footer below it. Exposed as a group named by its header and described by
/// its footer.
class SettingsGroup : public QWidget
{
    Q_OBJECT

public:
    struct Texts {
        std::optional<QString> header = {};
        std::optional<QString> footer = {};
    };

    /// Takes ownership of the card's rows.
    explicit SettingsGroup(const Texts &texts, const std::vector<QWidget *> &rows, QWidget *parent = nullptr);

    void setFooter(const std::optional<QString> &footer);

    /// Replaces the card's rows, from top to bottom. Earlier rows that are not among them are deleted.
    void setRows(const std::vector<QWidget *> &rows);

private:
    QVBoxLayout *m_rows;
    WrappedLabel *m_footer;
};
