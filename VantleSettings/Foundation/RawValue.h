#pragma once

#include <QString>

#include <optional>

/// The one of `all` enumerators whose `rawValue` is exactly this text; nothing for any other text.
template <class Enumerators>
auto fromRawValue(const Enumerators &all, const QString &text)
    -> std::optional<typename Enumerators::value_type>
{
    for (const auto enumerator : all) {
        if (rawValue(enumerator) == text)
            return enumerator;
    }
    return std::nullopt;
}
