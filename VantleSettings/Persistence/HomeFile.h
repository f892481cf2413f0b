#pragma once

#include "Foundation/Json.h"
#include "Foundation/JsonWriter.h"

#include <QString>

#include <functional>
#include <optional>

/// How every settings file is read and written: JSON under the home directory, which is asked for anew each
/// time; without a home nothing is read or written. A file holds one record, which a function `decode` makes
/// of its top level, a `Json::Value`, or does not where the file holds something else.
namespace HomeFile
{

/// The whole file; nothing when it is missing, unreadable or not valid JSON.
std::optional<Json::Document> read(const QString &relativePath);

/// The record in the file; nothing when the file is missing, unreadable or holds no such record.
template <class Decode>
auto load(const QString &relativePath, Decode decode) -> decltype(decode(Json::Value()))
{
    const auto document = read(relativePath);
    return document ? decode(document->root()) : std::nullopt;
}

/// Makes the directory where it is missing, then replaces the file's bytes in place. Whether it was written.
/// A file that is there but holds no record is first copied beside itself, as `<name>.unreadable`, or with
/// `-2` to `-9` after that where other bytes are there; the file is written whether or not it could be
/// copied.
bool write(const QString &relativePath, const Json::Node &record,
           const std::function<bool(const Json::Value &)> &isRecord);

/// `write` over what `decode` reads.
template <class Decode>
bool save(const QString &relativePath, const Json::Node &record, Decode decode)
{
    return write(relativePath, record, [&](const Json::Value &top) { return decode(top).has_value(); });
}

/// Removes the file or link; a missing one is no failure.
void remove(const QString &relativePath);

} // namespace HomeFile
