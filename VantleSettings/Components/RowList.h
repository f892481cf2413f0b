#pragma once

#include "Components/RowGeometry.h"

#include <QPointer>
#include <QUuid>
#include <QWidget>

#include <functional>
#include <map>
#include <vector>

class QScrollArea;

/// A list of any number of rows, with dividers between them. Up to a hundred rows all exist, unless their
/// texts are very long. Of other lists there are only the rows in view, the one with the keyboard focus and
/// those that the delegate keeps. A row is deleted at the latest when its id leaves the list.
///
/// The toolkit's item views paint their rows and open an editor in one of them at a time. Here each row has
/// its own controls, which keep caret and undo history and are in the accessibility tree.
class RowList : public QWidget
{
    Q_OBJECT

public:
    /// How the list makes and updates its rows. `index` is a row's place in the list.
    struct RowDelegate {
        /// Makes a row. At most one of its controls takes the focus by Tab; it is not the row's focus proxy.
        std::function<QWidget *(qsizetype index, QWidget *parent)> make;
        /// Updates an existing row.
        std::function<void(QWidget *row, qsizetype index)> show;
        /// Returns the function that estimates the height of each row, in points. Called again when the ids
        /// or the text size change.
        std::function<std::function<int(qsizetype index)>()> expectedHeights;
        /// The length of a row's texts, in UTF-16 code units. Called again when the ids change.
        std::function<qsizetype(qsizetype index)> textLength = {};
        /// Whether a row has state that exists nowhere else, so that it must not be deleted out of view.
        std::function<bool(const QWidget *row)> mustKeep = {};
    };

    static constexpr qsizetype virtualizationThreshold = 100;    ///< a list of more rows is virtualized
    static constexpr qsizetype virtualizationTextLength = 20000; ///< so is one of more text

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
    bool mustVirtualize() const;
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
    bool m_isVirtualized = false; ///< rows out of view do not exist
    RowGeometry m_geometry;
    std::map<qsizetype, Row> m_rows;
    QPointer<QScrollArea> m_scrollArea;
    bool m_updating = false;
};
