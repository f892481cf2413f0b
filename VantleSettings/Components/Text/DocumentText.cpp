#include "Components/Text/DocumentText.h"

#include "Components/Text/FoldMark.h"
#include "Components/Text/ShortenedText.h"

#include <QTextBlock>
#include <QTextCursor>
#include <QTextDocument>

#include <algorithm>
#include <array>
#include <vector>

namespace
{

// Characters that QTextDocument takes for the end of a line, although only a line feed ends one. In the
// document each is replaced by an unpaired low surrogate, which occurs in no text and is shown as an unknown
// character.
constexpr std::array<char16_t, 4> documentSeparators{u'\r', u'\u2029', u'\ufdd0', u'\ufdd1'};

// In letters, as a measure of the time for layout.
constexpr qsizetype longestLine = 4096;   ///< longer lines are folded
constexpr qsizetype longestText = 200000; ///< texts with a higher cost are folded
constexpr qsizetype lineCost = 64;        ///< the cost of a line besides its letters
constexpr qsizetype leastRoom = 256;      ///< how much of a text inserted into a full line is shown

constexpr char16_t substitute(std::size_t index)
{
    return char16_t(0xdc00 + index);
}

QString toDocument(QString text)
{
    for (std::size_t index = 0; index < documentSeparators.size(); ++index)
        text.replace(QChar(documentSeparators[index]), QChar(substitute(index)));
    return text;
}

/// The text of a part of a document without folds. (toPlainText() would replace no-break spaces and line
/// separators.)
QString fromDocument(QString rawText)
{
    rawText.replace(QChar::ParagraphSeparator, u'\n');
    for (std::size_t index = 0; index < documentSeparators.size(); ++index)
        rawText.replace(QChar(substitute(index)), QChar(documentSeparators[index]));
    return rawText;
}

/// One character of the document that represents a part of the text.
struct Fold {
    qsizetype position = 0;
    QString text;
};

/// The folds in `raw`, the document's characters from the position `from` on. Their positions are those in
/// `raw`.
std::vector<Fold> folds(const QTextDocument &document, const QString &raw, int from = 0)
{
    std::vector<Fold> folds;
    for (qsizetype mark = raw.indexOf(FoldMark::character); mark >= 0;
         mark = raw.indexOf(FoldMark::character, mark + 1)) {
        if (const auto folded = FoldMark::foldedText(document, int(from + mark)))
            folds.push_back({mark, *folded});
    }
    return folds;
}

struct Part {
    QStringView text;
    bool isFolded = false;
};

/// Divides a text into parts that are shown and parts that are folded.
class Folding
{
public:
    /// `firstLine` and `letters` limit what is shown of the first line and of all lines, in letters.
    Folding(QStringView text, qsizetype firstLine, qsizetype letters) : m_text(text)
    {
        qsizetype head = 0;
        for (qsizetype cost = 0; head < text.size() && cost < letters / 2;) {
            const qsizetype end = lineEnd(head);
            addLine(head, end, head == 0 ? firstLine : longestLine);
            cost += std::min(end - head, longestLine) + lineCost;
            head = end;
        }
        qsizetype tail = text.size();
        for (qsizetype cost = 0; tail > head && cost < letters / 2;) {
            const qsizetype start = lineStart(tail);
            cost += std::min(tail - start, longestLine) + lineCost;
            tail = start;
        }
        if (tail > head) {
            add(head, tail - 1, true);
            add(tail - 1, tail, false);
        }
        for (; tail < text.size(); tail = lineEnd(tail))
            addLine(tail, lineEnd(tail), longestLine);
    }

    const std::vector<Part> &parts() const { return m_parts; }

private:
    /// The position after the line feed of the line that begins at `start`.
    qsizetype lineEnd(qsizetype start) const
    {
        const qsizetype lineFeed = m_text.indexOf(u'\n', start);
        return lineFeed < 0 ? m_text.size() : lineFeed + 1;
    }

    /// The position at which the line that ends at `end` begins.
    qsizetype lineStart(qsizetype end) const { return m_text.first(end - 1).lastIndexOf(u'\n') + 1; }

    void addLine(qsizetype start, qsizetype end, qsizetype limit)
    {
        const QStringView line = m_text.sliced(start, end - start);
        const auto ends = textEnds(line.endsWith(u'\n') ? line.chopped(1) : line, limit);
        const qsizetype lineFeed = line.endsWith(u'\n') ? 1 : 0;
        if (!ends) {
            add(start, end, false);
            return;
        }
        add(start, start + ends->head, false);
        add(start + ends->head, end - lineFeed - ends->tail, true);
        add(end - lineFeed - ends->tail, end, false);
    }

    void add(qsizetype start, qsizetype end, bool isFolded)
    {
        if (start == end)
            return;
        if (!isFolded && !m_parts.empty() && !m_parts.back().isFolded)
            m_parts.back().text = QStringView(m_parts.back().text.begin(), m_text.begin() + end);
        else
            m_parts.push_back({m_text.sliced(start, end - start), isFolded});
    }

    QStringView m_text;
    std::vector<Part> m_parts;
};

} // namespace

void DocumentText::insert(QTextCursor &cursor, const QString &text)
{
    QTextDocument &document = *cursor.document();
    cursor.beginEditBlock();
    cursor.removeSelectedText();
    const qsizetype firstLine = std::max<qsizetype>(longestLine - cursor.block().length(), leastRoom);
    const qsizetype present = document.characterCount() + document.blockCount() * lineCost;
    const qsizetype letters = std::max<qsizetype>(longestText - present, longestLine);
    const Folding folding(text, firstLine, letters);
    for (const Part &part : folding.parts()) {
        if (part.isFolded)
            cursor.insertText(FoldMark::character, FoldMark::format(document, part.text.toString()));
        else
            cursor.insertText(toDocument(part.text.toString()), QTextCharFormat());
    }
    cursor.endEditBlock();
}

QString DocumentText::text(const QTextDocument &document)
{
    return text(document, 0, document.characterCount() - 1);
}

QString DocumentText::text(const QTextDocument &document, int from, int to)
{
    const QString raw = document.toRawText().sliced(from, to - from);
    QString text;
    qsizetype start = 0;
    for (const Fold &fold : folds(document, raw, from)) {
        text += fromDocument(raw.sliced(start, fold.position - start));
        text += fold.text;
        start = fold.position + 1;
    }
    text += fromDocument(raw.sliced(start));
    return text;
}

qsizetype DocumentText::offset(const QTextDocument &document, int position)
{
    qsizetype offset = position;
    for (const Fold &fold : folds(document, document.toRawText().first(position)))
        offset += fold.text.size() - 1;
    return offset;
}

int DocumentText::position(const QTextDocument &document, qsizetype offset)
{
    qsizetype position = std::max<qsizetype>(offset, 0);
    for (const Fold &fold : folds(document, document.toRawText())) {
        if (position < fold.position + fold.text.size()) {
            position = std::min(position, fold.position);
            break;
        }
        position -= fold.text.size() - 1;
    }
    return int(std::min<qsizetype>(position, document.characterCount() - 1));
}
