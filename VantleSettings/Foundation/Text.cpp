#include "Foundation/Text.h"

#include <QList>
#include <QStringDecoder>

#include <algorithm>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>

namespace
{

using Scalars = std::u32string;

/// Whether composing certainly leaves the text unchanged: no character below U+0300 combines with its
/// neighbour or is changed by composition.
bool isPlain(QStringView text)
{
    return std::all_of(text.begin(), text.end(), [](QChar unit) { return unit.unicode() < 0x300; });
}

bool isHangulSyllable(char32_t scalar)
{
    return scalar >= 0xAC00 && scalar <= 0xD7A3;
}

/// Whether the scalar never composes with a preceding one. (Some composing scalars that are no marks in this
/// version of Unicode may be missed. They then stay decomposed in every text, so comparing still works.)
bool hasBoundaryBefore(char32_t scalar)
{
    const bool isVowelOrFinalJamo = scalar >= 0x1160 && scalar <= 0x11FF;
    return scalar < 0x300 ||
           (QChar::combiningClass(scalar) == 0 && !QChar::isMark(scalar) && !isVowelOrFinalJamo);
}

/// Composes one letter with all its marks at a time. Asks the toolkit to normalize only single scalars and
/// pairs, each once, because the time that it takes for a longer text may grow with the square of the length.
class Composer
{
public:
    /// Appends the composed form of a letter to `result`.
    void append(QString &result, std::u32string_view letter)
    {
        if (letter.size() == 1 && (isHangulSyllable(letter.front()) || !decomposes(letter.front()))) {
            result += QChar::fromUcs4(letter.front());
            return;
        }
        m_scalars.clear();
        for (const char32_t scalar : letter)
            appendDecomposed(scalar);
        orderMarks();
        for (const char32_t scalar : compose())
            result += QChar::fromUcs4(scalar);
    }

private:
    static bool decomposes(char32_t scalar) { return QChar::decompositionTag(scalar) == QChar::Canonical; }

    void appendDecomposed(char32_t scalar)
    {
        if (!decomposes(scalar)) {
            m_scalars += scalar;
            return;
        }
        const auto [known, isNew] = m_decompositions.try_emplace(scalar);
        if (isNew) {
            QString text;
            text += QChar::fromUcs4(scalar);
            const auto parts = text.normalized(QString::NormalizationForm_D).toUcs4();
            known->second.assign(parts.begin(), parts.end());
        }
        m_scalars += known->second;
    }

    /// Puts each run of marks in canonical order.
    void orderMarks()
    {
        const auto isStarter = [](char32_t scalar) { return QChar::combiningClass(scalar) == 0; };
        const auto before = [](char32_t a, char32_t b) {
            return QChar::combiningClass(a) < QChar::combiningClass(b);
        };
        auto run = m_scalars.begin();
        while (run != m_scalars.end()) {
            const auto end = std::find_if(run, m_scalars.end(), isStarter);
            std::stable_sort(run, end, before);
            run = std::find_if_not(end, m_scalars.end(), isStarter);
        }
    }

    /// Composes in place. A scalar combines with the last starter unless it is blocked: a mark of the same or
    /// a higher combining class stands between them.
    std::u32string_view compose()
    {
        std::size_t count = 0;
        std::size_t starter = 0;
        int lastClass = 0;
        for (const char32_t scalar : m_scalars) {
            const int combiningClass = QChar::combiningClass(scalar);
            const bool isUnblocked = count == starter + 1 || lastClass < combiningClass;
            const char32_t both = count > 0 && isUnblocked ? composite(m_scalars[starter], scalar) : 0;
            if (both) {
                m_scalars[starter] = both;
                continue;
            }
            if (combiningClass == 0)
                starter = count;
            lastClass = combiningClass;
            m_scalars[count++] = scalar;
        }
        return std::u32string_view(m_scalars).substr(0, count);
    }

    /// The scalar that two scalars compose to; 0 where they don't.
    char32_t composite(char32_t first, char32_t second)
    {
        const auto [known, isNew] = m_composites.try_emplace(std::uint64_t(first) << 32 | second, 0);
        if (isNew) {
            QString pair;
            pair += QChar::fromUcs4(first);
            pair += QChar::fromUcs4(second);
            const auto scalars = pair.normalized(QString::NormalizationForm_C).toUcs4();
            known->second = scalars.size() == 1 ? char32_t(scalars.front()) : 0;
        }
        return known->second;
    }

    Scalars m_scalars;
    std::unordered_map<char32_t, Scalars> m_decompositions;
    std::unordered_map<std::uint64_t, char32_t> m_composites;
};

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
    const auto ucs4 = text.toUcs4();
    const Scalars scalars(ucs4.begin(), ucs4.end());
    Composer composer;
    QString result;
    result.reserve(text.size());
    for (auto letter = scalars.begin(); letter != scalars.end();) {
        const auto end = std::find_if(letter + 1, scalars.end(), hasBoundaryBefore);
        composer.append(result, std::u32string_view(&*letter, std::size_t(end - letter)));
        letter = end;
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
