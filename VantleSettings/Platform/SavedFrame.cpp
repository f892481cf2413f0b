#include "Platform/SavedFrame.h"

#include <QRegularExpression>

#include <algorithm>

using namespace Qt::StringLiterals;

namespace
{

/// What must show of a window's top before a hand can move it.
constexpr QSize handle(120, 24);

QRect middle(const QRect &screen, QSize size)
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
        text += u" maximized"_s;
    return text.toUtf8() + '\n';
}

std::optional<SavedFrame> SavedFrame::find(const QByteArray &bytes, const QString &name)
{
    static const QRegularExpression form(
        uR"(^([^=\n]*)=(\d{1,5})x(\d{1,5})(?:\+(-?\d{1,6})\+(-?\d{1,6}))?( maximized)?$)"_s,
        QRegularExpression::MultilineOption);
    const QString text = QString::fromUtf8(bytes);
    for (const QRegularExpressionMatch &match : form.globalMatch(text)) {
        if (match.captured(1) != name)
            continue;
        SavedFrame frame{.size = {match.captured(2).toInt(), match.captured(3).toInt()}};
        if (match.hasCaptured(4))
            frame.origin = QPoint(match.captured(4).toInt(), match.captured(5).toInt());
        frame.maximized = match.hasCaptured(6);
        return frame;
    }
    return std::nullopt;
}

QRect SavedFrame::placed(const QList<QRect> &screens) const
{
    if (screens.isEmpty())
        return {origin.value_or(QPoint()), size};
    if (origin) {
        const QRect top(*origin, QSize(size.width(), handle.height()));
        const auto holds = [&](const QRect &screen) {
            const QRect seen = top & screen;
            return seen.width() >= handle.width() && seen.height() >= handle.height();
        };
        const auto screen = std::find_if(screens.begin(), screens.end(), holds);
        if (screen != screens.end())
            return {*origin, size.boundedTo(screen->size())};
    }
    return middle(screens.first(), size.boundedTo(screens.first().size()));
}
