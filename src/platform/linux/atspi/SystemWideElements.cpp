#include "platform/linux/atspi/SystemWideElements.h"

#include "platform/AccessibilityNames.h"
#include "platform/linux/accessibletree/AtspiRole.h"
#include "platform/linux/atspi/AccessibleWindows.h"
#include "platform/linux/atspi/LinuxElements.h"

#include <algorithm>
#include <array>

namespace tarragon {

namespace {

constexpr std::array Names{attribute::Role, attribute::RoleDescription, attribute::FocusedApplication};

} // namespace

std::optional<std::vector<std::string>> SystemWideElements::attributeNames(const Element& /*element*/) {
    return std::vector<std::string>(Names.begin(), Names.end());
}

bool SystemWideElements::hasAttribute(const Element& /*element*/, std::string_view attribute) {
    return std::ranges::find(Names, attribute) != Names.end();
}

Value SystemWideElements::copyAttributeValue(const Element& /*element*/, std::string_view attribute) {
    if (attribute == attribute::Role)
        return std::string(role::SystemWide);
    if (attribute == attribute::RoleDescription)
        return std::string(accessibilityRoleDescription(role::SystemWide));
    if (attribute != attribute::FocusedApplication)
        return {};
    const auto active = _windows.activeWindow();
    return active ? Value{elementOfApplication(active->processIdentifier, active->identifier)} : Value{};
}

} // namespace tarragon
