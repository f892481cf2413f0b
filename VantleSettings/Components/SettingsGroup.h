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

    /// The card's rows belong to the group from here on.
    explicit SettingsGroup(const Texts &texts, const std::vector<QWidget *> &rows, QWidget *parent = nullptr);

    void setFooter(const std::optional<QString> &footer);

    /// Shows these rows from the top; earlier rows that are not among them are deleted.
    void setRows(const std::vector<QWidget *> &rows);

private:
    QVBoxLayout *m_rows;
    WrappedLabel *m_footer;
};
