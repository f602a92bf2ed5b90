#pragma once

#include "platform/Accessibility.h"
#include "platform/linux/accessibilitybus/AtspiConnection.h"
#include "platform/linux/accessibletree/AtspiMenuMemory.h"
#include "platform/linux/atspi/AccessibleWindows.h"

#include <memory>
#include <thread>

namespace tarragon {

class AtspiElement;
struct AtspiApplication;

// The accessibility interface over AT-SPI and the X server. Applications and windows are the X server's; menu bars,
// menus and everything within a window are AT-SPI's. One connection to the accessibility bus serves the thread that
// made this object, another, guarded, all other threads.
class LinuxAccessibility final : public Accessibility {
public:
    LinuxAccessibility(WindowSource& windows, ApplicationDirectory& applications);
    ~LinuxAccessibility() override;

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

    // What the calling thread's connection has sent so far.
    AtspiStatistics statistics();

private:
    struct Client;
    struct Batch;
    struct KnownFocus;
    class Operation;

    Client& clientOfThread();

    // Of the desktop itself, of applications and windows.
    Value attributeOutsideTree(Operation& operation, const Element& element, std::string_view attribute);
    Value attributeOfApplication(Operation& operation, const AtspiElement& application, std::string_view attribute);
    Value attributeOfWindow(Operation& operation, const Element& element, std::string_view attribute);
    std::optional<WindowDescription> focusedWindow(Operation& operation, const AtspiElement& application);
    std::optional<AtspiReference> frameOf(
        Operation& operation, const WindowDescription& window, const AtspiApplication& application);
    Element menuBarOfApplication(Operation& operation, const AtspiElement& application);
    Element elementInWindow(Operation& operation, const WindowDescription& window, const Point& pointCG);
    bool performPress(Operation& operation, const AtspiElement& element);

    AccessibleWindows _windows;
    std::thread::id _mainThread;
    AtspiMenuMemory _memory;
    std::unique_ptr<Client> _mainClient;
    std::unique_ptr<Client> _otherClient;
};

} // namespace tarragon
