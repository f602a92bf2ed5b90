#pragma once

#include <cstdint>

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

} // namespace tarragon
