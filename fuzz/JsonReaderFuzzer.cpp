#include "Foundation/Json.h"
#include "Fuzzing.h"

#include <nlohmann/json.hpp>

#include <optional>

namespace
{

/// Compares what both libraries read. Ours keeps the first of equal names, the other the last; so members are
/// compared only where every name is there once for both.
void compare(const Json::Value &ours, const nlohmann::json &theirs)
{
    MUST(ours.isArray() == theirs.is_array());
    MUST(ours.isObject() == theirs.is_object());
    MUST(ours.isAbsent() == theirs.is_null());
    MUST(ours.boolean().has_value() == theirs.is_boolean());
    MUST(ours.utf8().has_value() == theirs.is_string());
    if (theirs.is_boolean())
        MUST(ours.boolean() == theirs.get<bool>());
    if (theirs.is_string()) {
        MUST(ours.utf8() == theirs.get_ref<const std::string &>());
        MUST(ours.text().value_or(QString()).toStdString() == theirs.get_ref<const std::string &>());
    }
    if (theirs.is_number()) {
        const double number = theirs.get<double>();
        const bool isWhole = number >= 0 && number <= 4294967295.0 && double(std::uint32_t(number)) == number;
        MUST(ours.uint32() == (isWhole ? std::optional(std::uint32_t(number)) : std::nullopt));
    }
    if (theirs.is_array()) {
        const auto elements = ours.elements();
        MUST(elements.size() == theirs.size() && ours.elementCount() == theirs.size());
        for (std::size_t i = 0; i < elements.size(); ++i)
            compare(elements[i], theirs[i]);
    }
    if (theirs.is_object()) {
        const auto members = ours.members();
        MUST(members.size() <= theirs.size());
    }
}

/// Goes through a document by the other library's rules and notes what exceeds ours: more than 512 containers
/// deep, and whole numbers of more than 64 bits.
class Limits final : public nlohmann::json_sax<nlohmann::json>
{
public:
    bool exceeded() const { return m_exceeded; }

    bool null() override { return true; }
    bool boolean(bool) override { return true; }
    bool number_integer(number_integer_t) override { return true; }
    bool number_unsigned(number_unsigned_t) override { return true; }
    bool number_float(number_float_t, const string_t &spelling) override
    {
        m_exceeded |= spelling.find_first_of(".eE") == string_t::npos;
        return true;
    }
    bool string(string_t &) override { return true; }
    bool binary(binary_t &) override { return true; }
    bool key(string_t &) override { return true; }
    bool start_object(std::size_t) override { return enter(); }
    bool start_array(std::size_t) override { return enter(); }
    bool end_object() override { return leave(); }
    bool end_array() override { return leave(); }
    bool parse_error(std::size_t, const std::string &, const nlohmann::detail::exception &) override
    {
        return false;
    }

private:
    bool enter()
    {
        m_exceeded |= ++m_depth > 512;
        return true;
    }

    bool leave()
    {
        --m_depth;
        return true;
    }

    int m_depth = 0;
    bool m_exceeded = false;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const QByteArray bytes = inputBytes(data, size);
    const auto ours = Json::Document::parse(bytes);
    Limits limits;
    const bool theyAccept = nlohmann::json::sax_parse(bytes.begin(), bytes.end(), &limits);
    if (ours) {
        MUST(theyAccept && !limits.exceeded());
        compare(ours->root(), nlohmann::json::parse(bytes.begin(), bytes.end()));
    } else {
        // To the other library a NUL after the document ends the file.
        MUST(!theyAccept || limits.exceeded() || bytes.contains('\0'));
    }
    return 0;
}
