#pragma once

#include "Foundation/Json.h"
#include "Foundation/JsonWriter.h"

#include <QString>

#include <functional>
#include <optional>

namespace Persistence
{

/// Makes sure that the directory that contains this file exists.
void ensureDir(const QString &filePath);

} // namespace Persistence

/// How every settings file is read and written: JSON under the home directory, which is looked up for each
/// call; without a home directory nothing is read or written. A file holds one record. A function `decode`
/// makes the record from the top-level `Json::Value`, or returns nothing where that is no such record.
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

/// Makes the directory where it is missing, then replaces the file's bytes in place. Returns whether they
/// were written. An existing file that holds no record is first copied to `<name>.unreadable` beside it, or,
/// where that name is taken, to that name with `-2` to `-9` appended; the file is written whether or not it
/// could be copied.
bool write(const QString &relativePath, const Json::Node &record,
           const std::function<bool(const Json::Value &)> &isRecord);

/// Calls `write`; a file holds a record when `decode` returns one.
template <class Decode>
bool save(const QString &relativePath, const Json::Node &record, Decode decode)
{
    return write(relativePath, record, [&](const Json::Value &top) { return decode(top).has_value(); });
}

/// Removes the file or link. Failures are not reported.
void remove(const QString &relativePath);

} // namespace HomeFile
