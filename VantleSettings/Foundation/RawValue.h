#pragma once

#include <QString>

#include <optional>

/// The enumerator among `all` whose `rawValue` is exactly this text; nothing where there is none.
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
