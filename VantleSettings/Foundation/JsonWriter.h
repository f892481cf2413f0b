#pragma once

#include "Foundation/TextList.h"

#include <QByteArray>
#include <QString>

#include <cstdint>
#include <utility>
#include <variant>
#include <vector>

/// Writing JSON in exactly the form of the agent's encoder: pretty-printed, members sorted by the bytes of
/// their names, slashes escaped, no line feed at the end.
namespace Json
{

struct Node;
using Array = std::vector<Node>;

/// Members in any order, each name once.
using Object = std::vector<std::pair<QString, Node>>;

/// A value to write.
struct Node : std::variant<std::nullptr_t, bool, std::int64_t, QString, TextList, Array, Object> {
    using variant::variant;
};

QByteArray encode(const Node &node);

} // namespace Json
