#include "Components/Text/FoldMark.h"

#include "Components/Drawing/Painting.h"
#include "Components/Drawing/Tokens.h"

#include <QAbstractTextDocumentLayout>
#include <QFontMetricsF>
#include <QPainter>
#include <QTextBlock>
#include <QTextDocument>

namespace
{

constexpr int objectType = QTextFormat::UserObject + 1;
constexpr int foldedProperty = QTextFormat::UserProperty + 1;
constexpr qreal padding = 4;
constexpr qreal radius = 4;
const QString ellipsis(QChar(0x2026));

} // namespace

QTextCharFormat FoldMark::format(QTextDocument &document, const QString &folded)
{
    QAbstractTextDocumentLayout *layout = document.documentLayout();
    if (layout->handlerForObject(objectType) == nullptr)
        layout->registerHandler(objectType, new FoldMark(&document));
    QTextCharFormat format;
    format.setObjectType(objectType);
    format.setProperty(foldedProperty, folded);
    return format;
}

std::optional<QString> FoldMark::foldedText(const QTextDocument &document, int position)
{
    for (auto part = document.findBlock(position).begin(); !part.atEnd(); ++part) {
        if (!part.fragment().contains(position))
            continue;
        const QTextCharFormat format = part.fragment().charFormat();
        if (format.objectType() == objectType)
            return format.stringProperty(foldedProperty);
    }
    return std::nullopt;
}

QSizeF FoldMark::intrinsicSize(QTextDocument *document, int, const QTextFormat &)
{
    const QFontMetricsF metrics(document->defaultFont());
    return {metrics.horizontalAdvance(ellipsis) + 2 * padding, metrics.ascent()};
}

void FoldMark::drawObject(QPainter *painter, const QRectF &box, QTextDocument *document, int,
                          const QTextFormat &)
{
    painter->save();
    fillShape(*painter, continuousRectangle(box, radius), Tokens::quaternaryFill);
    painter->setFont(document->defaultFont());
    painter->setPen(textColor(TextColor::secondary));
    painter->drawText(box, Qt::AlignCenter, ellipsis);
    painter->restore();
}
