#pragma once

#include "platform/Value.h"
#include "platform/linux/accessibletree/AtspiElement.h"
#include "platform/linux/accessibletree/AtspiNode.h"

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

// The translation of one accessible object into the vocabulary of the system. Nothing here asks anybody anything.
namespace tarragon {

// What has to be known of an object to tell the attribute; nothing for attributes that are no matter of the object
// alone (its parent and children).
AtspiFields fieldsForAttribute(std::string_view attribute);
// The role in the vocabulary of the system; empty when the object does not tell.
std::string_view roleOfNode(const AtspiNode& node, AtspiElement::Place place);
std::vector<std::string> attributeNamesOfRole(std::string_view role);
bool roleHasAttribute(std::string_view role, std::string_view attribute);
Value attributeOfNode(const AtspiNode& node, AtspiElement::Place place, std::string_view attribute);

// An item that has a menu of its own without an object for it: its children stand in that menu.
bool hasImpliedMenu(const AtspiNode& node, AtspiElement::Place place);
// Within what the children of an object stand.
AtspiElement::Place placeOfChildren(std::uint32_t role, AtspiElement::Place place);
// False for what belongs to a menu's tree but is not to be seen in the menu.
bool isShownInMenu(const AtspiNode& node, AtspiToolkit toolkit);

// The position of the action that chooses, presses or opens, by the names that are not translated.
std::optional<std::int32_t> pressAction(const std::vector<std::string>& actionNames);

} // namespace tarragon
