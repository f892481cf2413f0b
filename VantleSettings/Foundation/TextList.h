#pragma once

#include <QList>
#include <QString>

#include <initializer_list>

/// Texts that are parts of one: half a million lines then cost two allocations instead of half a million.
class TextList
{
public:
    TextList() = default;
    TextList(std::initializer_list<QString> texts);

    /// An empty list, to which parts of this text can be added without a copy of it.
    static TextList forPartsOf(const QString &whole);
    QStringView whole() const { return m_whole; }
    void addPart(QStringView part); ///< of the whole; behind the last one, and behind a line feed

    /// Makes room for this many texts that have this many code units together.
    void reserve(qsizetype count, qsizetype units);
    void append(const QString &text); ///< at the end of the whole as well
    void append(QLatin1String text);

    bool isEmpty() const { return m_parts.isEmpty(); }
    qsizetype size() const { return m_parts.size(); }
    QStringView operator[](qsizetype index) const { return text(m_parts[index]); }

    QString joined() const; ///< with a line feed between each two

    bool operator==(const TextList &other) const;

private:
    struct Part {
        qsizetype begin;
        qsizetype size;
    };

    QStringView text(Part part) const { return whole().sliced(part.begin, part.size); }
    template <class AnyText>
    void appendAny(const AnyText &text);

    QString m_whole;
    QList<Part> m_parts;
};
