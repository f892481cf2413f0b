#include "Foundation/Json.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace dom = simdjson::dom;

namespace
{

constexpr std::size_t maximumDepth = 512;

/// The element as a T; nothing when it is missing or has another type.
template <class T>
std::optional<T> get(const std::optional<dom::element> &element)
{
    T value;
    if (!element || element->get(value) != simdjson::SUCCESS)
        return std::nullopt;
    return value;
}

bool isAscii(std::string_view bytes)
{
    return std::all_of(bytes.begin(), bytes.end(),
                       [](char byte) { return static_cast<signed char>(byte) >= 0; });
}

QString decoded(std::string_view utf8)
{
    if (isAscii(utf8))
        return QString::fromLatin1(utf8); // a decoder takes long to set up for the many short texts of a file
    return Text::decoded(utf8).value_or(QString());
}

bool sameName(std::string_view a, std::string_view b)
{
    if (a == b)
        return true;
    return !(isAscii(a) && isAscii(b)) && Text::equal(decoded(a), decoded(b));
}

bool isDeeperThan(std::size_t depth, dom::element element)
{
    if (dom::array array; element.get(array) == simdjson::SUCCESS) {
        return depth == 0 || std::any_of(array.begin(), array.end(),
                                         [&](dom::element inner) { return isDeeperThan(depth - 1, inner); });
    }
    if (dom::object object; element.get(object) == simdjson::SUCCESS) {
        return depth == 0 || std::any_of(object.begin(), object.end(), [&](dom::key_value_pair member) {
                   return isDeeperThan(depth - 1, member.value);
               });
    }
    return false;
}

/// The bytes without a byte order mark at their start.
std::string_view withoutMark(const QByteArray &bytes)
{
    constexpr std::string_view mark = "\xEF\xBB\xBF";
    std::string_view text(bytes.constData(), std::size_t(bytes.size()));
    if (text.starts_with(mark))
        text.remove_prefix(mark.size());
    // Some versions of the parser would skip a second mark.
    return text.starts_with(mark) ? std::string_view() : text;
}

simdjson::error_code parse(dom::parser &parser, const QByteArray &bytes, std::size_t depthLimit)
{
    const std::string_view text = withoutMark(bytes);
    if (text.empty())
        return simdjson::EMPTY;
    if (const auto error = parser.allocate(text.size() + simdjson::SIMDJSON_PADDING, depthLimit))
        return error;
    // The parser reads in blocks, past the end; it copies bytes that have no padding allocated behind them.
    const bool hasRoom = bytes.capacity() - bytes.size() >= qsizetype{simdjson::SIMDJSON_PADDING};
    return parser.parse(text.data(), text.size(), !hasRoom).error();
}

} // namespace

std::optional<bool> Json::Value::boolean() const
{
    return get<bool>(m_element);
}

std::optional<std::string_view> Json::Value::utf8() const
{
    return get<std::string_view>(m_element);
}

std::optional<QString> Json::Value::text() const
{
    const auto bytes = utf8();
    return bytes ? std::optional(decoded(*bytes)) : std::nullopt;
}

std::optional<std::uint32_t> Json::Value::uint32() const
{
    const auto number = get<double>(m_element);
    if (!number || *number != std::floor(*number) || *number < 0 ||
        *number > double(std::numeric_limits<std::uint32_t>::max()))
        return std::nullopt;
    return std::uint32_t(*number);
}

Json::Value Json::Value::operator[](std::string_view name) const
{
    const auto object = get<dom::object>(m_element);
    if (!object)
        return {};
    for (const dom::key_value_pair &member : *object) {
        if (sameName(member.key, name))
            return Value(member.value);
    }
    return {};
}

Text::Map<Json::Value> Json::Value::members() const
{
    Text::Map<Value> members;
    if (const auto object = get<dom::object>(m_element)) {
        for (const dom::key_value_pair &member : *object)
            members.try_emplace(decoded(member.key), member.value);
    }
    return members;
}

bool Json::Value::isArrayOfTexts() const
{
    const auto array = get<dom::array>(m_element);
    return array && std::all_of(array->begin(), array->end(),
                                [](dom::element element) { return element.is_string(); });
}

TextList Json::Value::texts() const
{
    const std::vector<Value> elements = this->elements();
    TextList texts;
    if (elements.size() > 1) { // one text is not copied
        std::size_t size = 0;  // in bytes: a text has no more code units
        for (const Value &element : elements)
            size += element.utf8().value_or(std::string_view()).size();
        texts.reserve(qsizetype(elements.size()), qsizetype(size));
    }
    for (const Value &element : elements) {
        const auto bytes = element.utf8();
        if (bytes && isAscii(*bytes))
            texts.append(QLatin1String(bytes->data(), qsizetype(bytes->size())));
        else if (bytes)
            texts.append(decoded(*bytes));
    }
    return texts;
}

std::size_t Json::Value::elementCount() const
{
    constexpr std::size_t saturatedSize = 0xFFFFFF;
    const auto array = get<dom::array>(m_element);
    if (!array || array->size() < saturatedSize)
        return array ? array->size() : 0;
    return std::size_t(std::distance(array->begin(), array->end()));
}

std::vector<Json::Value> Json::Value::elements() const
{
    std::vector<Value> elements;
    if (const auto array = get<dom::array>(m_element)) {
        elements.reserve(array->size());
        for (const dom::element element : *array)
            elements.emplace_back(element);
    }
    return elements;
}

Json::Document::Document(std::unique_ptr<dom::parser> parser) : m_parser(std::move(parser))
{
}

std::optional<Json::Document> Json::Document::parse(const QByteArray &bytes)
{
    // Versions of the parser count depth differently: what exceeds half of the limit is parsed with twice the
    // limit and measured here.
    auto parser = std::make_unique<dom::parser>();
    auto error = ::parse(*parser, bytes, maximumDepth / 2);
    if (error == simdjson::DEPTH_ERROR) {
        error = ::parse(*parser, bytes, maximumDepth * 2);
        if (error == simdjson::SUCCESS && isDeeperThan(maximumDepth, parser->doc.root()))
            return std::nullopt;
    }
    if (error != simdjson::SUCCESS)
        return std::nullopt;
    return Document(std::move(parser));
}

Json::Value Json::Document::root() const
{
    return Value(m_parser->doc.root());
}
