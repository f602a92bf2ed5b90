#pragma once

#include "platform/Accessibility.h"
#include "platform/linux/atspi/AccessibleWindows.h"
#include "platform/linux/atspi/ApplicationElements.h"
#include "platform/linux/atspi/AtspiClients.h"
#include "platform/linux/atspi/MenuBars.h"
#include "platform/linux/atspi/NodeElements.h"
#include "platform/linux/atspi/SystemWideElements.h"
#include "platform/linux/atspi/WindowContents.h"
#include "platform/linux/atspi/WindowElements.h"
#include "platform/linux/windows/MenuBarSource.h"

#include <unistd.h>

namespace tarragon {

// The accessibility interface over AT-SPI and the window system. Applications and windows are the window system's;
// menu bars, menus and everything within a window are AT-SPI's. One connection to the accessibility bus serves the
// thread that made this object, another, guarded, all other threads.
//
// What the window system alone can answer never waits for an application, for the accessibility bus or for another
// thread that waits for these: all but the menu bar and the children of an application, and all but the children of a
// window.
class LinuxAccessibility final : public Accessibility, public MenuBarSource {
public:
    // Never asks its own process over the bus.
    LinuxAccessibility(
        WindowSource& windows, ApplicationDirectory& applications, std::int64_t ownProcessIdentifier = ::getpid());

    bool isEnabled() override;
    bool isTrusted() override;
    bool openSettings() override;

    Element systemWideElement() override;
    Element applicationElement(std::int64_t processIdentifier) override;
    Element elementAtPosition(const Point& pointCG) override;

    std::optional<std::int64_t> processIdentifier(const Element& element) override;
    std::optional<std::vector<std::string>> attributeNames(const Element& element) override;
    bool hasAttribute(const Element& element, std::string_view attribute) override;
    Value copyAttributeValue(const Element& element, std::string_view attribute) override;
    std::optional<std::int64_t> attributeValueCount(const Element& element, std::string_view attribute) override;
    bool isAttributeSettable(const Element& element, std::string_view attribute) override;
    bool setAttributeValue(const Element& element, std::string_view attribute, const Value& value) override;

    std::optional<std::vector<std::string>> actionNames(const Element& element) override;
    std::optional<std::string> actionDescription(const Element& element, std::string_view action) override;
    bool performAction(const Element& element, std::string_view action) override;

    void beginReadBatch(ReadBatchDepth depth) override;
    void endReadBatch() override;
    void readAhead(std::span<const Element> elements, std::span<const std::string_view> attributes) override;

    std::uint32_t windowWithMenuBar(std::uint32_t window) override;

    // What the calling thread's connection has sent so far.
    AtspiStatistics statistics();

private:
    // nullptr for nil and for elements of other back ends.
    ElementsOfKind* kindOf(const Element& element);

    const std::int64_t _ownProcessIdentifier;
    AccessibleWindows _windows;
    AtspiClients _clients;
    WindowContents _contents{_windows};
    MenuBars _menuBars{_windows, _contents};
    SystemWideElements _systemWide{_windows};
    ApplicationElements _applications{_windows, _clients, _menuBars};
    WindowElements _windowElements{_windows, _clients, _contents};
    NodeElements _nodes{_clients};
};

} // namespace tarragon
