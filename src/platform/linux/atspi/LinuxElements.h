#pragma once

#include "platform/Element.h"
#include "platform/linux/accessibletree/AtspiElement.h"
#include "platform/linux/atspi/AtspiApplications.h"
#include "platform/linux/windows/WindowDescription.h"

#include <cstdint>
#include <memory>

// The elements of this back end that stand for something on the screen, made from what is known of it.
namespace tarragon {

Element elementOfSystem();
// The application of a process. Where a window does not tell its process, 0 and that window.
Element elementOfApplication(std::int64_t processIdentifier, std::uint32_t window);
Element elementOfWindow(const WindowDescription& window);
// An accessible object within a window, still to be completed.
std::shared_ptr<AtspiElement> nodeInWindow(const WindowDescription& window, const AtspiApplication& application,
    std::uint64_t busIdentity, const AtspiReference& reference);

} // namespace tarragon
