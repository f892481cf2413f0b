#include "Comparison.h"

#include <algorithm>
#include <array>
#include <cstdlib>

namespace
{

constexpr int maxDifference = 255;

std::array<int, 3> averageColor(const QImage &picture, const QRect &square)
{
    std::array<int, 3> sum{};
    for (int y = square.top(); y <= square.bottom(); ++y) {
        const auto *line = reinterpret_cast<const QRgb *>(picture.constScanLine(y));
        for (int x = square.left(); x <= square.right(); ++x) {
            sum[0] += qRed(line[x]);
            sum[1] += qGreen(line[x]);
            sum[2] += qBlue(line[x]);
        }
    }
    for (int &part : sum)
        part /= square.width() * square.height();
    return sum;
}

} // namespace

int perceivedDifference(const QImage &one, const QImage &other, int side)
{
    if (one.size() != other.size())
        return maxDifference;
    const QImage a = one.convertToFormat(QImage::Format_RGB32);
    const QImage b = other.convertToFormat(QImage::Format_RGB32);
    int largest = 0;
    for (int y = 0; y < a.height(); y += side) {
        for (int x = 0; x < a.width(); x += side) {
            const QRect square = QRect(x, y, side, side).intersected(a.rect());
            const std::array<int, 3> here = averageColor(a, square);
            const std::array<int, 3> there = averageColor(b, square);
            for (size_t part = 0; part < here.size(); ++part)
                largest = std::max(largest, std::abs(here[part] - there[part]));
        }
    }
    return largest;
}
