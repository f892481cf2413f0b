#pragma once

#include "Components/RowGeometry.h"

#include <QPointer>
#include <QUuid>
#include <QWidget>

#include <functional>
#include <map>
#include <vector>

class QScrollArea;

/// Rows one below the other with dividers between them, however many. Up to a hundred rows all exist; of a
/// longer list only those in view do, besides the one that has the keyboard and those that the delegate
/// keeps. A row is deleted at the latest when its id leaves the list.
///
/// The toolkit's item views draw pictures of rows and have an editor in one of them at a time; here each row
/// has its own controls, which keep caret and undo history and are in the accessibility tree.
class RowList : public QWidget
{
    Q_OBJECT

public:
    /// How the list makes its rows; all are told the row's place in the list.
    struct RowDelegate {
        /// Makes a row. Its one control that takes the keyboard is its focus proxy.
        std::function<QWidget *(qsizetype index, QWidget *parent)> make;
        /// Updates an existing row.
        std::function<void(QWidget *row, qsizetype index)> show;
        /// Makes the function that says how high each row will probably be, in points; asked again after a
        /// change of the text size.
        std::function<std::function<int(qsizetype index)>()> expectedHeights;
        /// Whether a row out of view has a state that only it knows, and so must not be deleted.
        std::function<bool(const QWidget *row)> mustKeep = {};
    };

    static constexpr qsizetype virtualizationThreshold = 100;

    explicit RowList(RowDelegate delegate, QWidget *parent = nullptr);
    ~RowList() override;

    /// Sets the ids of the rows, in order. Rows whose id stays are kept and updated.
    void setIds(std::vector<QUuid> ids);

    /// The row at this place, or null where none exists at the moment.
    QWidget *row(qsizetype index) const;
    /// How many rows exist at the moment.
    qsizetype createdCount() const { return qsizetype(m_rows.size()); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override { return sizeHint(); }

protected:
    bool event(QEvent *event) override;
    bool eventFilter(QObject *watched, QEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void showEvent(QShowEvent *event) override;
    bool focusNextPrevChild(bool next) override;

private:
    struct Row {
        QWidget *widget;
        QWidget *divider; ///< below the row; none below the last
    };
    using Range = RowGeometry::Range;

    qsizetype count() const { return qsizetype(m_ids.size()); }
    void keepRows(const std::vector<QUuid> &ids);
    void expectHeights();
    bool measure();
    Range wanted() const;
    void watchScrollArea();
    void refresh();
    void createMissingRows();
    void makeRow(qsizetype index);
    void dropOutside(Range range);
    bool mustKeep(const QWidget *row) const;
    void discard(const Row &row);
    void place();
    void chainFocus(std::map<qsizetype, Row>::iterator row);

    RowDelegate m_delegate;
    QWidget *m_start; ///< invisible; marks where the rows begin in the tab order
    std::vector<QUuid> m_ids;
    RowGeometry m_geometry;
    std::map<qsizetype, Row> m_rows;
    QPointer<QScrollArea> m_scrollArea;
    bool m_updating = false;
};
