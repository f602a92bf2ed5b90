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

// The fields of an object from which the attribute follows. None for the parent and the children, which are objects of
// their own.
AtspiFields fieldsForAttribute(std::string_view attribute);
// The role in the vocabulary of the system; empty when the object does not tell.
std::string_view roleOfNode(const AtspiNode& node, AtspiElement::Place place);
std::vector<std::string> attributeNamesOfRole(std::string_view role);
bool roleHasAttribute(std::string_view role, std::string_view attribute);
Value attributeOfNode(const AtspiNode& node, AtspiElement::Place place, std::string_view attribute);

// An item that has a menu of its own without an object for it: its children stand in that menu.
bool hasImpliedMenu(const AtspiNode& node, AtspiElement::Place place);
// The place of the children of an object with this role in this place.
AtspiElement::Place placeOfChildren(std::uint32_t role, AtspiElement::Place place);
// False for objects that stand in a menu's tree but are not shown in the menu: tear-offs and hidden items.
bool isShownInMenu(const AtspiNode& node, AtspiToolkit toolkit);

// The index of the action that chooses, presses or opens, among the untranslated names of all actions.
std::optional<std::int32_t> pressAction(const std::vector<std::string>& actionNames);

} // namespace tarragon
