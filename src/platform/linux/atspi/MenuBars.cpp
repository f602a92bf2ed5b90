#include "platform/linux/atspi/MenuBars.h"

#include "platform/Log.h"
#include "platform/linux/atspi/AccessibleWindows.h"
#include "platform/linux/atspi/AtspiOperation.h"
#include "platform/linux/atspi/WindowContents.h"

#include <algorithm>
#include <string>

namespace tarragon {

namespace {

// Each window that is looked at costs a question at least, and one with a menu bar is rarely far.
constexpr std::size_t WindowLimit = 10;

} // namespace

std::optional<WindowMenuBar> MenuBars::shownBy(AtspiOperation& operation, const WindowDescription& window) {
    std::vector<std::uint32_t> tried{window.identifier};
    auto found = within(operation, window);
    if (!found)
        found = ofOwners(operation, window, tried);
    // A window that does not tell its process may belong to any.
    if (!found && window.processIdentifier != 0)
        found = ofApplication(operation, window.processIdentifier, tried);
    if (!found) {
        log(LogCategory::Accessibility, [&] {
            return "no menu bar to show for window " + std::to_string(window.identifier) + " \"" + window.title
                + "\" of process " + std::to_string(window.processIdentifier);
        });
    }
    return found;
}

std::optional<WindowMenuBar> MenuBars::within(AtspiOperation& operation, const WindowDescription& window) {
    const auto application = operation.application(window.processIdentifier);
    if (!application)
        return {};
    operation.readRemembered(window.identifier, *application);
    const auto frame = _contents.frame(operation, window, *application);
    const auto menuBar = frame ? operation.windows().menuBar(*frame, operation.nodes()) : std::nullopt;
    return menuBar ? std::optional(WindowMenuBar{window, *application, *menuBar}) : std::nullopt;
}

std::optional<WindowMenuBar> MenuBars::ofOwners(
    AtspiOperation& operation, const WindowDescription& window, std::vector<std::uint32_t>& tried) {
    std::uint32_t next = window.transientFor;
    // Windows may name one another as their owners.
    while (next != 0 && tried.size() < WindowLimit && std::ranges::find(tried, next) == tried.end()) {
        tried.push_back(next);
        const auto owner = _windows.describe(next);
        if (!owner)
            return {};
        if (auto found = within(operation, *owner))
            return found;
        next = owner->transientFor;
    }
    return {};
}

std::optional<WindowMenuBar> MenuBars::ofApplication(
    AtspiOperation& operation, std::int64_t processIdentifier, const std::vector<std::uint32_t>& tried) {
    std::size_t looks = 0;
    for (const WindowDescription& window : _windows.windowsByActivation(processIdentifier)) {
        if (std::ranges::find(tried, window.identifier) != tried.end())
            continue;
        if (++looks > WindowLimit)
            return {};
        if (auto found = within(operation, window))
            return found;
    }
    return {};
}

} // namespace tarragon
