#include "Platform/Window/detail/SavedFrame.h"

#include <algorithm>
#include <cstdlib>

using namespace Qt::StringLiterals;

namespace
{

/// The part of a window's top that must be visible for the user to drag the window.
constexpr QSize grabArea(120, 24);

constexpr QLatin1String maximizedMark(" maximized");
constexpr int largest = 100'000;    ///< pixels: no screen is so wide
constexpr int farthest = 1'000'000; ///< pixels: no point of a screen is so far from the origin

QRect centered(const QRect &screen, QSize size)
{
    QRect frame({}, size);
    frame.moveCenter(screen.center());
    return frame;
}

} // namespace

QByteArray SavedFrame::line(const QString &name) const
{
    QString text = u"%1=%2x%3"_s.arg(name).arg(size.width()).arg(size.height());
    if (origin)
        text += u"+%1+%2"_s.arg(origin->x()).arg(origin->y());
    if (maximized)
        text += maximizedMark;
    return text.toUtf8() + '\n';
}

// Parsed by hand: every start reads its frame, and the library of regular expressions would be loaded for
// this alone.
std::optional<SavedFrame> SavedFrame::find(const QByteArray &bytes, const QString &name)
{
    const QByteArray start = name.toUtf8() + '=';
    for (const QByteArray &line : bytes.split('\n')) {
        if (!line.startsWith(start))
            continue;
        SavedFrame frame;
        QByteArray text = line.mid(start.size());
        if (text.endsWith(maximizedMark)) {
            frame.maximized = true;
            text.chop(maximizedMark.size());
        }
        const QByteArrayList parts = text.split('+'); // the size, and the origin's two numbers
        const QByteArrayList size = parts.constFirst().split('x');
        frame.size = {size.value(0).toInt(), size.value(1).toInt()};
        if (parts.size() == 3)
            frame.origin = QPoint(parts.at(1).toInt(), parts.at(2).toInt());
        // A line that this program would not have written itself is ignored.
        if (frame.isPlausible() && frame.line(name) == line + '\n')
            return frame;
    }
    return std::nullopt;
}

bool SavedFrame::isPlausible() const
{
    const QPoint place = origin.value_or(QPoint());
    return !size.isEmpty() && std::max(size.width(), size.height()) < largest &&
           std::max(std::abs(place.x()), std::abs(place.y())) < farthest;
}

QRect SavedFrame::placed(const QList<QRect> &screens) const
{
    if (screens.isEmpty())
        return {origin.value_or(QPoint()), size};
    if (origin) {
        const QRect top(*origin, QSize(size.width(), grabArea.height()));
        const auto holds = [&](const QRect &screen) {
            const QRect seen = top & screen;
            return seen.width() >= grabArea.width() && seen.height() >= grabArea.height();
        };
        const auto screen = std::find_if(screens.begin(), screens.end(), holds);
        if (screen != screens.end())
            return {*origin, size.boundedTo(screen->size())};
    }
    return centered(screens.first(), size.boundedTo(screens.first().size()));
}
