#include "Foundation/JsonWriter.h"

#include <algorithm>
#include <cstddef>
#include <string_view>
#include <type_traits>

namespace
{

class Writer
{
public:
    explicit Writer(QByteArray &out) : m_out(out) {}

    void operator()(std::nullptr_t) { m_out += "null"; }
    void operator()(bool value) { m_out += value ? "true" : "false"; }
    void operator()(std::int64_t value) { m_out += QByteArray::number(qint64(value)); }
    void operator()(const QString &value) { writeText(value); }

    void operator()(const QStringList &texts)
    {
        writeContainer('[', texts, ']', [this](const QString &text) { writeText(text); });
    }

    void operator()(const Json::Array &array)
    {
        writeContainer('[', array, ']', [this](const Json::Node &element) { write(element); });
    }

    void operator()(const Json::Object &object)
    {
        std::vector<std::pair<QByteArray, const Json::Node *>> members;
        for (const auto &[name, value] : object)
            members.emplace_back(name.toUtf8(), &value);
        std::sort(members.begin(), members.end(),
                  [](const auto &a, const auto &b) { return a.first < b.first; });
        writeContainer('{', members, '}', [this](const auto &member) {
            writeBytes(member.first);
            m_out += " : ";
            write(*member.second);
        });
    }

    void write(const Json::Node &node) { std::visit(*this, static_cast<const Json::Node::variant &>(node)); }

private:
    template <class Elements, class WriteElement>
    void writeContainer(char open, const Elements &elements, char close, WriteElement writeElement)
    {
        m_out += open;
        m_out += '\n';
        ++m_depth;
        const char *separator = "";
        for (const auto &element : elements) {
            m_out += separator;
            indent();
            writeElement(element);
            separator = ",\n";
        }
        --m_depth;
        m_out += '\n';
        indent();
        m_out += close;
    }

    void indent() { m_out.append(qsizetype{2} * m_depth, ' '); }

    /// Most texts are ASCII: these are written without a UTF-8 copy.
    void writeText(const QString &text)
    {
        const QStringView units(text);
        if (isAscii(units))
            writeBytes(units.utf16(), units.utf16() + units.size());
        else
            writeBytes(text.toUtf8());
    }

    static bool isAscii(QStringView text)
    {
        char16_t all = 0;
        for (const QChar unit : text)
            all |= unit.unicode();
        return all < 0x80;
    }

    void writeBytes(const QByteArray &utf8) { writeBytes(utf8.begin(), utf8.end()); }

    template <class Unit>
    void writeBytes(const Unit *begin, const Unit *end)
    {
        qsizetype escaped = 0;
        forEachBlock(begin, end, [&](const Unit *block, const Unit *blockEnd) {
            escaped += escapedCount(block, blockEnd);
        });
        const qsizetype start = m_out.size();
        m_out.resize(start + 2 + (end - begin) + escaped * (longestEscape - 1));
        char *out = m_out.data() + start;
        *out++ = '"';
        forEachBlock(begin, end, [&](const Unit *block, const Unit *blockEnd) {
            out = escaped == 0 || escapedCount(block, blockEnd) == 0 ? copy(block, blockEnd, out)
                                                                     : copyEscaped(block, blockEnd, out);
        });
        *out++ = '"';
        m_out.truncate(out - m_out.constData());
    }

    template <class Unit, class Function>
    static void forEachBlock(const Unit *begin, const Unit *end, Function function)
    {
        while (begin != end) {
            const Unit *const blockEnd = begin + std::min(end - begin, blockLength);
            function(begin, blockEnd);
            begin = blockEnd;
        }
    }

    /// Counts in a type as small as the units, so that the compiler can count many at a time.
    template <class Unit>
    static qsizetype escapedCount(const Unit *begin, const Unit *end)
    {
        std::make_unsigned_t<Unit> count = 0;
        for (; begin != end; ++begin)
            count += mustBeEscaped(*begin) ? 1 : 0;
        return count;
    }

    /// Returns where the next byte goes, as do the others.
    template <class Unit>
    static char *copy(const Unit *begin, const Unit *end, char *out)
    {
        return std::transform(begin, end, out, [](Unit unit) { return char(unit); });
    }

    template <class Unit>
    static char *copyEscaped(const Unit *begin, const Unit *end, char *out)
    {
        for (; begin != end; ++begin) {
            if (mustBeEscaped(*begin))
                out = escape(char(*begin), out);
            else
                *out++ = char(*begin);
        }
        return out;
    }

    template <class Unit>
    static bool mustBeEscaped(Unit unit)
    {
        return std::make_unsigned_t<Unit>(unit) < 0x20 || unit == '"' || unit == '\\' || unit == '/';
    }

    static char *escape(char byte, char *out)
    {
        static constexpr std::string_view plain = "\"\\/\b\f\n\r\t";
        static constexpr std::string_view letter = "\"\\/bfnrt";
        *out++ = '\\';
        if (const auto which = plain.find(byte); which != std::string_view::npos) {
            *out++ = letter[which];
            return out;
        }
        return std::ranges::copy("u00" + QByteArray(1, byte).toHex(), out).out;
    }

    static constexpr qsizetype longestEscape = 6;      ///< in bytes
    static constexpr std::ptrdiff_t blockLength = 255; ///< at most what escapedCount() can count

    QByteArray &m_out;
    int m_depth = 0;
};

} // namespace

QByteArray Json::encode(const Node &node)
{
    QByteArray out;
    Writer(out).write(node);
    return out;
}
