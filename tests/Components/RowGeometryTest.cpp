#include "Components/RowGeometry.h"

#include <gtest/gtest.h>

#include <vector>

namespace
{

constexpr int divider = RowGeometry::dividerHeight;

/// The rows between two positions, by linear search; a divider belongs to the row above it.
std::vector<qsizetype> rowsBetween(const RowGeometry &rows, int top, int bottom)
{
    std::vector<qsizetype> found;
    for (qsizetype index = 0; index < rows.count(); ++index) {
        if (rows.top(index + 1) > top && rows.top(index) < bottom)
            found.push_back(index);
    }
    return found;
}

std::vector<qsizetype> indices(RowGeometry::Range range)
{
    std::vector<qsizetype> indices;
    for (qsizetype index = range.first; index < range.end; ++index)
        indices.push_back(index);
    return indices;
}

TEST(RowGeometryTest, WithoutRowsTakesNoRoom)
{
    RowGeometry rows;
    EXPECT_EQ(rows.totalHeight(), 0);
    rows.setHeights({});
    EXPECT_EQ(rows.totalHeight(), 0);
    EXPECT_EQ(rows.top(0), 0);
    EXPECT_EQ(indices(rows.rowsBetween(0, 100)), std::vector<qsizetype>());
}

TEST(RowGeometryTest, HasDividersBetweenRowsOnly)
{
    RowGeometry rows;
    rows.setHeights({40});
    EXPECT_EQ(rows.totalHeight(), 40);
    rows.setHeights({40, 50, 60});
    EXPECT_EQ(rows.top(1), 40 + divider);
    EXPECT_EQ(rows.top(2), 40 + 50 + 2 * divider);
    EXPECT_EQ(rows.totalHeight(), 40 + 50 + 60 + 2 * divider);
}

TEST(RowGeometryTest, AChangedHeightMovesTheRowsBelow)
{
    RowGeometry rows;
    rows.setHeights({40, 50, 60, 70});
    rows.changeHeights({{1, 55}, {3, 71}});
    EXPECT_EQ(rows.top(1), 40 + divider);
    EXPECT_EQ(rows.top(2), 40 + 55 + 2 * divider);
    EXPECT_EQ(rows.height(2), 60);
    EXPECT_EQ(rows.totalHeight(), 40 + 55 + 60 + 71 + 3 * divider);
}

TEST(RowGeometryTest, FindsTheRowsBetweenTwoPositions)
{
    RowGeometry rows;
    rows.setHeights({3, 1, 4, 1, 5});
    for (int top = -2; top <= rows.totalHeight() + 2; ++top) {
        for (int bottom = top + 1; bottom <= rows.totalHeight() + 4; ++bottom)
            EXPECT_EQ(indices(rows.rowsBetween(top, bottom)), rowsBetween(rows, top, bottom))
                << top << " to " << bottom;
    }
}

} // namespace
