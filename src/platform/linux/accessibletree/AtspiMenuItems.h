#pragma once

#include "platform/linux/accessibilitybus/AtspiReference.h"
#include "platform/linux/accessibletree/AtspiElement.h"

#include <cstddef>
#include <span>

namespace tarragon {

// Some of the items of one menu, or menu bar. Points to the list of them, which must stay where it is.
struct AtspiMenuItems {
    std::span<const AtspiReference> ofMenu; // all of them
    std::size_t begin;
    std::size_t end;
    AtspiElement::Place place;
    int levelsBelow; // how many levels of menus below them are to be read

    std::span<const AtspiReference> meant() const { return ofMenu.subspan(begin, end - begin); }
};

} // namespace tarragon
