#pragma once

#include "platform/Geometry.h"
#include "platform/linux/accessibilitybus/AtspiReference.h"
#include "platform/linux/accessibilitybus/AtspiState.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarragon {

// What can be asked of an accessible object; a set of bits.
enum AtspiField : std::uint32_t {
    AtspiFieldNone = 0,
    AtspiFieldRole = 1U << 0U,
    AtspiFieldName = 1U << 1U,
    AtspiFieldStates = 1U << 2U,
    AtspiFieldKeyBinding = 1U << 3U,
    AtspiFieldChildren = 1U << 4U,
    AtspiFieldChildCount = 1U << 5U,
    AtspiFieldParent = 1U << 6U,
    AtspiFieldExtents = 1U << 7U,
    AtspiFieldDescription = 1U << 8U,
    AtspiFieldText = 1U << 9U,
    AtspiFieldNumber = 1U << 10U,
    AtspiFieldKinds = 1U << 11U,
};
using AtspiFields = std::uint32_t;

// The children of an object sorted by kind, from four searches among them instead of two questions about each child.
// The searches do not tell tear-offs from items.
struct AtspiKinds {
    static constexpr int Questions = 4;

    std::vector<AtspiReference> usual; // visible and enabled, as most children are
    std::vector<AtspiReference> checked;
    std::vector<AtspiReference> menus;
    std::vector<AtspiReference> separators;
    int answers = 0;

    // True when all four searches were answered; one without the others tells nothing.
    bool areKnown() const { return answers == Questions; }
};

// What is known of one accessible object. A field that was asked for and is empty could not be had.
struct AtspiNode {
    AtspiFields asked = AtspiFieldNone; // fields not to be asked for again, being asked for or known otherwise
    AtspiFields requested = AtspiFieldNone; // those of them that were asked of the object itself
    std::optional<std::uint32_t> role;
    std::optional<std::string> name;
    std::optional<std::uint64_t> states;
    std::optional<std::string> keyBinding; // of its first action
    bool hasNoAction = false; // it refused to tell the key binding of its first action
    std::optional<std::vector<AtspiReference>> children;
    std::optional<std::int64_t> childCount;
    std::optional<AtspiReference> parent;
    std::optional<Rect> extents; // screen space
    std::optional<std::string> description;
    std::optional<std::string> text; // in a text field
    std::optional<double> number; // value of a slider, a scroll bar ...
    AtspiKinds kinds; // of its children
    bool isRoleAssumed = false; // the searches found it in no other kind, so its role is a guess
    bool isReadBelow = false; // the items of this menu and of all menus below it were asked for

    bool has(AtspiState state) const { return states && ((*states >> static_cast<unsigned>(state)) & 1U) != 0; }
    AtspiFields missing(AtspiFields wanted) const { return wanted & ~asked; }
    void takeNoKey() {
        keyBinding.reset();
        asked |= AtspiFieldKeyBinding;
    }
};

} // namespace tarragon
