#pragma once

/// The dynamic properties by which a widget tells its accessible interface what the toolkit has no properties
/// for.
namespace AccessibleProperties
{

constexpr auto role = "vantleAccessibleRole";   ///< int, a QAccessible::Role
constexpr auto decoration = "vantleDecoration"; ///< bool: not in the tree
constexpr auto describes =
    "vantleDescribes"; ///< QPointer<QObject>: the control whose description the text is
constexpr auto nameParts = "vantleNameParts";               ///< QStringList: the name, in parts
constexpr auto descriptionParts = "vantleDescriptionParts"; ///< QStringList: the description, in parts
constexpr auto spokenName = "vantleSpokenName"; ///< QPointer<QObject>: a hidden label with the name in words

} // namespace AccessibleProperties
