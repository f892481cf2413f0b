#pragma once

#include "Foundation/Text.h"
#include "Foundation/TextList.h"

#include <QByteArray>
#include <QString>

#include <simdjson.h>

#include <cstdint>
#include <memory>
#include <optional>
#include <string_view>
#include <vector>

/// Reading JSON as the agent's platform reads it: strict, in UTF-8, at most 512 containers deep. Names are
/// equal when they are canonically equivalent, and of equal names in an object the first wins. The toolkit's
/// reader compares names by code unit, lets the last one win and has another depth limit.
namespace Json
{

/// A value of a document, or the absence of one. Asking it for a type that it doesn't have gives nothing.
/// Valid as long as its document.
class Value
{
public:
    Value() = default;
    explicit Value(simdjson::dom::element element) : m_element(element) {}

    bool isArray() const { return m_element && m_element->is_array(); }
    bool isObject() const { return m_element && m_element->is_object(); }

    /// Whether an optional member has no value: it is missing or null.
    bool isAbsent() const { return !m_element || m_element->is_null(); }

    std::optional<bool> boolean() const;
    std::optional<QString> text() const;
    std::optional<std::string_view> utf8() const; ///< the text, not decoded

    /// A number, in any spelling, that as a double is an integer from 0 to 4294967295.
    std::optional<std::uint32_t> uint32() const;

    /// The member of an object.
    Value operator[](std::string_view name) const;
    Text::Map<Value> members() const;

    bool isArrayOfTexts() const;
    TextList texts() const; ///< the elements of an array that are texts
    std::size_t elementCount() const;
    std::vector<Value> elements() const;

private:
    std::optional<simdjson::dom::element> m_element;
};

/// A parsed document. `parse` returns nothing unless all bytes are one valid document.
class Document
{
public:
    static std::optional<Document> parse(const QByteArray &bytes);

    Value root() const;

private:
    explicit Document(std::unique_ptr<simdjson::dom::parser> parser);

    std::unique_ptr<simdjson::dom::parser> m_parser;
};

} // namespace Json
