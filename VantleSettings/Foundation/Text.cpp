#include "Foundation/Text.h"

#include <QList>
#include <QStringDecoder>

#include <algorithm>
#include <string>

namespace
{

using Scalars = std::u32string;

/// Whether composing leaves the text as it is, seen at a glance: below U+0300 nothing decomposes the composed
/// form or joins its neighbour.
bool isPlain(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar unit) { return unit.unicode() < 0x300; });
}

void appendDecomposed(Scalars &scalars, char32_t scalar)
{
    if (QChar::decompositionTag(scalar) != QChar::Canonical) {
        scalars += scalar;
        return;
    }
    for (const char32_t part : QChar::decomposition(scalar).toUcs4())
        appendDecomposed(scalars, part);
}

/// Puts each run of marks in canonical order.
void orderMarks(Scalars &scalars)
{
    const auto isStarter = [](char32_t scalar) { return QChar::combiningClass(scalar) == 0; };
    const auto before = [](char32_t a, char32_t b) {
        return QChar::combiningClass(a) < QChar::combiningClass(b);
    };
    auto run = scalars.begin();
    while (run != scalars.end()) {
        const auto end = std::find_if(run, scalars.end(), isStarter);
        std::stable_sort(run, end, before);
        run = std::find_if_not(end, scalars.end(), isStarter);
    }
}

/// Whether a decomposed scalar never joins what stands before it. (Some joining scalars that are no marks in
/// this version of Unicode may be missed: they then stay decomposed in every text, which compares the same.)
bool startsAnew(char32_t scalar)
{
    const bool isVowelOrFinalJamo = scalar >= 0x1160 && scalar <= 0x11FF;
    return QChar::combiningClass(scalar) == 0 && !QChar::isMark(scalar) && !isVowelOrFinalJamo;
}

} // namespace

std::optional<QString> Text::decoded(QByteArrayView utf8)
{
    using Flag = QStringDecoder::Flag;
    QStringDecoder decoder(QStringDecoder::Utf8, Flag::Stateless | Flag::ConvertInitialBom);
    const QString text = decoder.decode(utf8);
    if (decoder.hasError())
        return std::nullopt;
    return text;
}

QString Text::composed(const QString &text)
{
    if (isPlain(text))
        return text;
    Scalars scalars;
    for (const char32_t scalar : text.toUcs4())
        appendDecomposed(scalars, scalar);
    orderMarks(scalars);
    // The toolkit composes in time that grows with the square of the length, so it gets one letter with its
    // marks at a time.
    QString result;
    result.reserve(text.size());
    for (auto piece = scalars.cbegin(); piece != scalars.cend();) {
        const auto end = std::find_if(piece + 1, scalars.cend(), startsAnew);
        // Scalar by scalar: converting them together would take a U+FEFF for a byte order mark and drop it.
        QString letter;
        for (auto scalar = piece; scalar != end; ++scalar)
            letter += QChar::fromUcs4(*scalar);
        result += end - piece == 1 ? letter : letter.normalized(QString::NormalizationForm_C);
        piece = end;
    }
    return result;
}

bool Text::equal(QStringView a, QStringView b)
{
    if (a == b)
        return true;
    if (isPlain(a) && isPlain(b))
        return false;
    return composed(a.toString()) == composed(b.toString());
}

bool Text::Before::operator()(QStringView a, QStringView b) const
{
    if (isPlain(a) && isPlain(b))
        return a < b;
    return sortKey(a.toString()) < sortKey(b.toString());
}

Text::SortKey Text::sortKey(const QString &text)
{
    const auto scalars = composed(text).toUcs4();
    return SortKey(scalars.begin(), scalars.end());
}

QStringView Text::trimmed(QStringView text)
{
    while (!text.isEmpty() && isBlank(text.front()))
        text = text.sliced(1);
    while (!text.isEmpty() && isBlank(text.back()))
        text.chop(1);
    return text;
}

QString Text::lowercased(const QString &text)
{
    return text.toLower();
}
