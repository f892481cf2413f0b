#include "Foundation/JsonWriter.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <string>
#include <string_view>

namespace
{

class Writer
{
public:
    /// What has been written.
    QByteArray take()
    {
        m_out.truncate(m_size);
        return std::move(m_out);
    }

    void operator()(std::nullptr_t) { append("null"); }
    void operator()(bool value) { append(value ? "true" : "false"); }
    void operator()(std::int64_t value) { append(std::to_string(value)); }
    void operator()(const QString &value) { writeText(value); }

    void operator()(const TextList &texts)
    {
        writeContainer('[', texts, ']', [this](QStringView text) { writeText(text); });
    }

    void operator()(const Json::Array &array)
    {
        writeContainer('[', array, ']', [this](const Json::Node &element) { write(element); });
    }

    void operator()(const Json::Object &object)
    {
        std::vector<std::pair<QByteArray, const Json::Object::value_type *>> members;
        for (const auto &member : object)
            members.emplace_back(member.first.toUtf8(), &member);
        std::ranges::sort(members, {}, &decltype(members)::value_type::first);
        writeContainer('{', members, '}', [this](const auto &member) {
            writeText(member.second->first);
            append(" : ");
            write(member.second->second);
        });
    }

    void write(const Json::Node &node) { std::visit(*this, static_cast<const Json::Node::variant &>(node)); }

private:
    template <class Elements, class WriteElement>
    void writeContainer(char open, const Elements &elements, char close, WriteElement writeElement)
    {
        const std::string outerLine = '\n' + std::string(indentWidth * m_depth, ' ');
        const std::string nextLine = ',' + outerLine + std::string(indentWidth, ' ');
        append({&open, 1});
        append("\n");
        ++m_depth;
        std::string_view before = std::string_view(nextLine).substr(2); // the line has begun
        for (decltype(elements.size()) i = 0; i < elements.size(); ++i) {
            append(before);
            writeElement(elements[i]);
            before = nextLine;
        }
        --m_depth;
        append(outerLine);
        append({&close, 1});
    }

    void append(std::string_view bytes)
    {
        setEnd(std::ranges::copy(bytes, room(qsizetype(bytes.size()))).out);
    }

    /// Where the next byte goes, with room for this many. They are written when setEnd() has been called.
    char *room(qsizetype count)
    {
        if (m_out.size() - m_size < count)
            m_out.resize(std::max(2 * m_out.size(), m_size + count));
        return m_out.data() + m_size;
    }

    void setEnd(const char *end) { m_size = end - m_out.constData(); }

    void writeText(QStringView text)
    {
        append("\"");
        while (!text.isEmpty()) {
            const QStringView block = text.first(blockLength(text));
            if (isAscii(block))
                escape(block.utf16(), block.utf16() + block.size());
            else
                escape(block.toUtf8());
            text = text.sliced(block.size());
        }
        append("\"");
    }

    /// How much of the text is converted at once: so little that its UTF-8 is small, but whole characters.
    static qsizetype blockLength(QStringView text)
    {
        if (text.size() <= longestBlock)
            return text.size();
        return text[longestBlock - 1].isHighSurrogate() ? longestBlock - 1 : longestBlock;
    }

    static bool isAscii(QStringView text)
    {
        char16_t all = 0;
        for (const QChar unit : text)
            all |= unit.unicode();
        return all < 0x80;
    }

    void escape(const QByteArray &utf8) { escape(utf8.begin(), utf8.end()); }

    /// Without a branch for the usual escapes: it would often be mispredicted.
    template <class Unit>
    void escape(const Unit *begin, const Unit *end)
    {
        char *out = room((end - begin) * longestEscape);
        for (; begin != end; ++begin) {
            const auto byte = static_cast<unsigned char>(*begin);
            const char escaped = escapes[byte];
            *out = '\\';
            out += escaped ? 1 : 0;
            *out++ = escaped ? escaped : char(byte);
            if (escaped == 'u')
                out = std::ranges::copy("00" + QByteArray(1, char(byte)).toHex(), out).out;
        }
        setEnd(out);
    }

    /// What follows the backslash for each byte; 0 where there is none.
    static constexpr std::array<char, 256> escapes = [] {
        std::array<char, 256> escapes{};
        std::fill_n(escapes.begin(), 0x20, 'u');
        constexpr std::string_view plain = "\"\\/\b\f\n\r\t";
        constexpr std::string_view letters = "\"\\/bfnrt";
        for (std::size_t i = 0; i < plain.size(); ++i)
            escapes[static_cast<unsigned char>(plain[i])] = letters[i];
        return escapes;
    }();

    static constexpr std::size_t indentWidth = 2;   ///< in spaces for each level
    static constexpr qsizetype longestEscape = 6;   ///< in bytes
    static constexpr qsizetype longestBlock = 4096; ///< in code units

    QByteArray m_out;     ///< with room for more at its end
    qsizetype m_size = 0; ///< of what has been written
    std::size_t m_depth = 0;
};

} // namespace

QByteArray Json::encode(const Node &node)
{
    Writer writer;
    writer.write(node);
    return writer.take();
}
