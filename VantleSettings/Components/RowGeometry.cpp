#include "Components/RowGeometry.h"

#include <algorithm>
#include <utility>

void RowGeometry::setHeights(std::vector<int> heights)
{
    m_heights = std::move(heights);
    updateTops();
}

void RowGeometry::changeHeights(const std::map<qsizetype, int> &heights)
{
    for (const auto &[index, height] : heights)
        m_heights[size_t(index)] = height;
    updateTops();
}

RowGeometry::Range RowGeometry::rowsBetween(int top, int bottom) const
{
    const auto first = std::upper_bound(m_tops.begin() + 1, m_tops.end(), top) - m_tops.begin() - 1;
    const auto end = std::lower_bound(m_tops.begin(), m_tops.end(), bottom) - m_tops.begin();
    return {first, std::min<qsizetype>(end, count())};
}

void RowGeometry::updateTops()
{
    m_tops.resize(m_heights.size() + 1);
    for (size_t index = 0; index < m_heights.size(); ++index) {
        const bool isLast = index + 1 == m_heights.size();
        m_tops[index + 1] = m_tops[index] + m_heights[index] + (isLast ? 0 : dividerHeight);
    }
}
