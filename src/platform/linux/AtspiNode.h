#pragma once

#include "platform/Geometry.h"
#include "platform/linux/AtspiReference.h"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarragon {

// The states of an accessible object that we look at, by their bit number.
enum class AtspiState : std::uint8_t {
    Active = 1,
    Checked = 4,
    Editable = 7,
    Enabled = 8,
    Focused = 12,
    Iconified = 15,
    Sensitive = 24,
    Showing = 25,
    Visible = 30,
};

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
};
using AtspiFields = std::uint32_t;

// What is known of one accessible object. A field that was asked for and is empty could not be had.
struct AtspiNode {
    AtspiFields asked = AtspiFieldNone;
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
    std::optional<std::string> text; // contents of a text field
    std::optional<double> number; // value of a slider, a scroll bar ...
    bool isReadBelow = false; // the items of this menu were read, and those of all menus below

    bool has(AtspiState state) const { return states && ((*states >> static_cast<unsigned>(state)) & 1U) != 0; }
    AtspiFields missing(AtspiFields wanted) const { return wanted & ~asked; }
};

} // namespace tarragon
