#include "Foundation/TextList.h"

#include <algorithm>
#include <numeric>

TextList::TextList(std::initializer_list<QString> texts)
{
    for (const QString &text : texts)
        append(text);
}

TextList TextList::forPartsOf(const QString &whole)
{
    TextList list;
    list.m_whole = whole;
    return list;
}

void TextList::addPart(QStringView part)
{
    m_parts.append({part.begin() - whole().begin(), part.size()});
}

void TextList::reserve(qsizetype count, qsizetype units)
{
    m_whole.reserve(units + count);
    m_parts.reserve(count);
}

template <class AnyText>
void TextList::appendAny(const AnyText &text)
{
    if (!isEmpty())
        m_whole.append(u'\n');
    m_parts.append({m_whole.size(), text.size()});
    m_whole.append(text);
}

void TextList::append(const QString &text)
{
    appendAny(text);
}

void TextList::append(QLatin1String text)
{
    appendAny(text);
}

QString TextList::joined() const
{
    const qsizetype units = std::accumulate(m_parts.begin(), m_parts.end(), size() - 1,
                                            [](qsizetype sum, Part part) { return sum + part.size; });
    if (units == m_whole.size())
        return m_whole; // it has nothing but the parts and the line feeds between them
    QString joined;
    for (const Part part : m_parts) {
        if (part.begin != m_parts.first().begin)
            joined.append(u'\n');
        joined.append(text(part));
    }
    return joined;
}

bool TextList::operator==(const TextList &other) const
{
    return std::ranges::equal(m_parts, other.m_parts,
                              [&](Part a, Part b) { return text(a) == other.text(b); });
}
