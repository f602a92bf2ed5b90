#include "platform/linux/atspi/ApplicationElements.h"

#include "platform/AccessibilityNames.h"
#include "platform/linux/accessibletree/AtspiElement.h"
#include "platform/linux/accessibletree/AtspiRole.h"
#include "platform/linux/atspi/AccessibleWindows.h"
#include "platform/linux/atspi/AtspiOperation.h"
#include "platform/linux/atspi/LinuxElements.h"
#include "platform/linux/atspi/MenuBars.h"

#include <algorithm>
#include <array>

namespace tarragon {

namespace {

constexpr std::array Names{attribute::Role, attribute::RoleDescription, attribute::Title, attribute::FocusedWindow,
    attribute::Windows, attribute::Hidden, attribute::MenuBar, attribute::Children};

} // namespace

std::optional<std::vector<std::string>> ApplicationElements::attributeNames(const Element& /*element*/) {
    return std::vector<std::string>(Names.begin(), Names.end());
}

bool ApplicationElements::hasAttribute(const Element& /*element*/, std::string_view attribute) {
    return std::ranges::find(Names, attribute) != Names.end();
}

Value ApplicationElements::copyAttributeValue(const Element& element, std::string_view attribute) {
    const AtspiElement& application = *AtspiElement::of(element);
    if (attribute == attribute::Role)
        return std::string(role::Application);
    if (attribute == attribute::RoleDescription)
        return std::string(accessibilityRoleDescription(role::Application));
    if (attribute == attribute::Title)
        return title(application);
    if (attribute == attribute::Hidden)
        return isHidden(application);
    if (attribute == attribute::FocusedWindow) {
        const auto focused = focusedWindow(application);
        return focused ? Value{elementOfWindow(focused->window)} : Value{};
    }
    if (attribute == attribute::MenuBar) {
        const Element found = menuBar(application);
        return found ? Value{found} : Value{};
    }
    if (attribute != attribute::Windows && attribute != attribute::Children)
        return {};
    std::vector<Element> elements;
    for (const WindowDescription& window : windowsOf(application))
        elements.push_back(elementOfWindow(window));
    if (attribute == attribute::Children) {
        if (const Element found = menuBar(application))
            elements.push_back(found);
    }
    return elements;
}

std::optional<std::int64_t> ApplicationElements::attributeValueCount(
    const Element& element, std::string_view attribute) {
    if (attribute != attribute::Windows && attribute != attribute::Children)
        return {};
    const AtspiElement& application = *AtspiElement::of(element);
    auto count = static_cast<std::int64_t>(windowsOf(application).size());
    if (attribute == attribute::Children && menuBar(application))
        ++count;
    return count;
}

std::optional<FocusedWindow> ApplicationElements::focusedWindow(const AtspiElement& application) {
    BatchMemory* const batch = _clients.batches().ofThread();
    if (batch != nullptr && batch->focus && batch->focus->processIdentifier == application.processIdentifier
        && batch->focus->window == application.window)
        return batch->focus->focusedWindow;
    auto focused = _windows.focusedWindow(application.processIdentifier, application.window);
    if (batch != nullptr)
        batch->focus = {application.processIdentifier, application.window, focused};
    return focused;
}

std::vector<WindowDescription> ApplicationElements::windowsOf(const AtspiElement& application) {
    return _windows.windowsOfApplication(application.processIdentifier, application.window);
}

Value ApplicationElements::title(const AtspiElement& application) {
    std::optional<WindowDescription> window;
    if (const auto focused = focusedWindow(application)) {
        window = focused->window;
    } else if (const auto all = windowsOf(application); !all.empty()) {
        window = all.front();
    }
    // Without a window its process is all that the application is known by.
    WindowDescription windowless;
    windowless.processIdentifier = application.processIdentifier;
    std::string name = _windows.applicationName(window.value_or(windowless));
    return name.empty() && !window ? Value{} : Value{std::move(name)};
}

bool ApplicationElements::isHidden(const AtspiElement& application) {
    // The focused window is one that is seen, if there is any; all others are asked only without it.
    const auto focused = focusedWindow(application);
    return focused ? !focused->isOnShownWorkspace : !windowsOf(application).empty();
}

Element ApplicationElements::menuBar(const AtspiElement& application) {
    const auto focused = focusedWindow(application);
    if (!focused)
        return {};
    AtspiOperation operation(_clients);
    const auto found = _menuBars.shownBy(operation, focused->window);
    if (!found)
        return {};
    auto element = nodeInWindow(found->window, found->application, operation.busIdentity(), found->menuBar);
    element->parent = elementOfApplication(application.processIdentifier, application.window);
    return Element(std::move(element));
}

} // namespace tarragon
