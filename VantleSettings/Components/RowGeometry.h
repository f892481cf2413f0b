#pragma once

#include <QtGlobal>

#include <map>
#include <vector>

/// The positions of rows one below the other, with dividers between them. Positions and heights are in
/// points; a row's height does not include its divider.
class RowGeometry
{
public:
    static constexpr int dividerHeight = 1;

    /// The rows from `first` to the one before `end`.
    struct Range {
        qsizetype first;
        qsizetype end;

        bool contains(qsizetype index) const { return index >= first && index < end; }
    };

    void setHeights(std::vector<int> heights);
    /// Sets the heights of the rows with these indices.
    void changeHeights(const std::map<qsizetype, int> &heights);

    qsizetype count() const { return qsizetype(m_heights.size()); }
    int height(qsizetype index) const { return m_heights[size_t(index)]; }
    /// The top of a row; for `count()` the bottom of the last row.
    int top(qsizetype index) const { return m_tops[size_t(index)]; }
    int totalHeight() const { return m_tops.back(); }

    /// The rows that lie, at least in part, between these positions.
    Range rowsBetween(int top, int bottom) const;

private:
    void updateTops();

    std::vector<int> m_heights;
    std::vector<int> m_tops{0}; ///< of every row, then the bottom of the last one
};
