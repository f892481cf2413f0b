#pragma once

#include "Foundation/Json.h"
#include "Foundation/JsonWriter.h"

#include <QString>

#include <optional>

/// How every settings file is read and written: JSON under the home directory, which is asked for anew each
/// time; without a home nothing is read or written.
namespace HomeFile
{

/// The whole file; nothing when it is missing, unreadable or not valid JSON.
std::optional<Json::Document> read(const QString &relativePath);

/// Makes the directory where it is missing, then replaces the file's bytes in place. Whether it was written.
bool write(const QString &relativePath, const Json::Node &node);

/// Removes the file or link; a missing one is no failure.
void remove(const QString &relativePath);

} // namespace HomeFile
