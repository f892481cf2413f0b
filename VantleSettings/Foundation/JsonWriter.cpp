#include "Foundation/JsonWriter.h"

#include <algorithm>

namespace
{

class Writer
{
public:
    explicit Writer(QByteArray &out) : m_out(out) {}

    void operator()(std::nullptr_t) { m_out += "null"; }
    void operator()(bool value) { m_out += value ? "true" : "false"; }
    void operator()(std::int64_t value) { m_out += QByteArray::number(qint64(value)); }
    void operator()(const QString &value) { writeText(value.toUtf8()); }

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
            writeText(member.first);
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

    void writeText(const QByteArray &utf8)
    {
        m_out += '"';
        qsizetype written = 0;
        for (qsizetype i = 0; i < utf8.size(); ++i) {
            if (!mustBeEscaped(utf8[i]))
                continue;
            m_out.append(utf8.constData() + written, i - written);
            writeEscaped(utf8[i]);
            written = i + 1;
        }
        m_out.append(utf8.constData() + written, utf8.size() - written);
        m_out += '"';
    }

    static bool mustBeEscaped(char byte)
    {
        return static_cast<unsigned char>(byte) < 0x20 || byte == '"' || byte == '\\' || byte == '/';
    }

    void writeEscaped(char byte)
    {
        static constexpr std::string_view plain = "\"\\/\b\f\n\r\t";
        static constexpr std::string_view letter = "\"\\/bfnrt";
        if (const auto which = plain.find(byte); which != std::string_view::npos) {
            m_out += '\\';
            m_out += letter[which];
        } else {
            m_out += "\\u00";
            m_out += QByteArray(1, byte).toHex();
        }
    }

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
