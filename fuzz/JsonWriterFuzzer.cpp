#include "Foundation/Json.h"
#include "Foundation/JsonWriter.h"
#include "Fuzzing.h"

#include <nlohmann/json.hpp>

#include <set>

namespace
{

/// Makes a JSON value from arbitrary bytes.
class Maker
{
public:
    explicit Maker(QByteArray bytes) : m_bytes(std::move(bytes)) {}

    Json::Node node(int depth = 0)
    {
        const unsigned kind = next() % (depth < 20 ? 7 : 5);
        switch (kind) {
        case 0:
            return nullptr;
        case 1:
            return next() % 2 == 0;
        case 2:
            return number();
        case 3:
            return text();
        case 4:
            return texts();
        case 5:
            return array(depth);
        default:
            return object(depth);
        }
    }

private:
    unsigned next()
    {
        return m_position < m_bytes.size() ? static_cast<unsigned char>(m_bytes[m_position++]) : 0;
    }

    std::int64_t number()
    {
        std::uint64_t bits = 0;
        for (unsigned byte = next() % 9; byte > 0; --byte)
            bits = bits << 8 | next();
        return std::int64_t(bits);
    }

    QString text()
    {
        const QByteArray bytes = m_bytes.mid(m_position, qsizetype(next() % 32));
        m_position = qMin(m_position + bytes.size(), m_bytes.size());
        return Text::decoded(bytes).value_or(QString::fromLatin1(bytes));
    }

    TextList texts()
    {
        TextList texts;
        for (unsigned left = next() % 5; left > 0; --left)
            texts.append(text());
        return texts;
    }

    Json::Array array(int depth)
    {
        Json::Array array;
        for (unsigned left = next() % 5; left > 0; --left)
            array.push_back(node(depth + 1));
        return array;
    }

    Json::Object object(int depth)
    {
        Json::Object object;
        Text::Map<bool> names;
        for (unsigned left = next() % 5; left > 0; --left) {
            const QString name = text();
            if (names.try_emplace(name, true).second)
                object.emplace_back(name, node(depth + 1));
        }
        return object;
    }

    QByteArray m_bytes;
    qsizetype m_position = 0;
};

nlohmann::json theirs(const Json::Node &node)
{
    struct Convert {
        nlohmann::json operator()(std::nullptr_t) const { return nullptr; }
        nlohmann::json operator()(bool value) const { return value; }
        nlohmann::json operator()(std::int64_t value) const { return value; }
        nlohmann::json operator()(const QString &value) const { return value.toStdString(); }
        nlohmann::json operator()(const TextList &texts) const
        {
            auto result = nlohmann::json::array();
            for (qsizetype i = 0; i < texts.size(); ++i)
                result.push_back(texts[i].toString().toStdString());
            return result;
        }
        nlohmann::json operator()(const Json::Array &array) const
        {
            auto result = nlohmann::json::array();
            for (const Json::Node &element : array)
                result.push_back(theirs(element));
            return result;
        }
        nlohmann::json operator()(const Json::Object &object) const
        {
            auto result = nlohmann::json::object();
            for (const auto &[name, value] : object)
                result[name.toStdString()] = theirs(value);
            return result;
        }
    };
    return std::visit(Convert(), static_cast<const Json::Node::variant &>(node));
}

/// Whether our reader gives the value back.
bool isReadBack(const Json::Node &node, const Json::Value &value)
{
    struct Compare {
        const Json::Value &value;
        bool operator()(std::nullptr_t) const { return value.isAbsent(); }
        bool operator()(bool expected) const { return value.boolean() == expected; }
        bool operator()(std::int64_t expected) const
        {
            const bool fits = expected >= 0 && expected <= 4294967295;
            return fits ? value.uint32() == std::uint32_t(expected) : !value.uint32();
        }
        bool operator()(const QString &expected) const { return value.text() == expected; }
        bool operator()(const TextList &expected) const
        {
            return value.isArrayOfTexts() && value.texts() == expected;
        }
        bool operator()(const Json::Array &array) const
        {
            const auto elements = value.elements();
            return value.isArray() &&
                   std::equal(array.begin(), array.end(), elements.begin(), elements.end(), isReadBack);
        }
        bool operator()(const Json::Object &object) const
        {
            const auto members = value.members();
            return value.isObject() && members.size() == object.size() &&
                   std::all_of(object.begin(), object.end(), [&](const auto &member) {
                       const auto found = members.find(member.first);
                       return found != members.end() && isReadBack(member.second, found->second);
                   });
        }
    };
    return std::visit(Compare{value}, static_cast<const Json::Node::variant &>(node));
}

} // namespace

/// What is written, our reader and another library read back equal.
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const Json::Node node = Maker(inputBytes(data, size)).node();
    const QByteArray bytes = Json::encode(node);
    const auto document = Json::Document::parse(bytes);
    MUST(document && isReadBack(node, document->root()));
    MUST(nlohmann::json::parse(bytes.begin(), bytes.end()) == theirs(node));
    return 0;
}
