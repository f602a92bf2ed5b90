#include "platform/linux/atspi/LinuxAccessibility.h"

#include "platform/linux/atspi/AtspiOperation.h"
#include "platform/linux/atspi/LinuxElements.h"

#include <mutex>
#include <utility>

namespace tarragon {

namespace {

using Kind = AtspiElement::Kind;

} // namespace

LinuxAccessibility::LinuxAccessibility(
    WindowSource& windows, ApplicationDirectory& applications, std::int64_t ownProcessIdentifier)
    : _ownProcessIdentifier(ownProcessIdentifier)
    , _windows(windows, applications)
    , _clients(ownProcessIdentifier) { }

ElementsOfKind* LinuxAccessibility::kindOf(const Element& element) {
    const AtspiElement* handle = AtspiElement::of(element);
    if (handle == nullptr)
        return nullptr;
    switch (handle->kind) {
    case Kind::SystemWide:
        return &_systemWide;
    case Kind::Application:
        return &_applications;
    case Kind::Window:
        return &_windowElements;
    case Kind::Node:
    case Kind::ItemMenu:
        return &_nodes;
    }
    return nullptr;
}

// Whoever reads menus takes long enough for windows to change meanwhile, and asks little of them.
void LinuxAccessibility::beginReadBatch(ReadBatchDepth depth) {
    _clients.batches().begin(depth);
    BatchMemory& batch = *_clients.batches().ofThread();
    if (batch.nesting > 1 || depth != ReadBatchDepth::AsAsked)
        return;
    batch.isLook = true;
    _windows.beginLook();
}

void LinuxAccessibility::endReadBatch() {
    const BatchMemory* const batch = _clients.batches().ofThread();
    const bool endsLook = batch != nullptr && batch->isLook && batch->nesting == 1;
    _clients.batches().end();
    if (endsLook)
        _windows.endLook();
}

void LinuxAccessibility::readAhead(std::span<const Element> elements, std::span<const std::string_view> attributes) {
    if (_clients.batches().ofThread() != nullptr)
        _nodes.readAhead(elements, attributes);
}

AtspiStatistics LinuxAccessibility::statistics() {
    AtspiClient& client = _clients.ofThread();
    const std::lock_guard lock(client.mutex);
    return client.connection.statistics();
}

bool LinuxAccessibility::isEnabled() {
    return AtspiOperation(_clients).sessionBus().isEnabled();
}

bool LinuxAccessibility::isTrusted() {
    return AtspiOperation(_clients).connection().ensureOpen();
}

bool LinuxAccessibility::openSettings() {
    AtspiOperation operation(_clients);
    // A service may take the change and yet stay off.
    return operation.sessionBus().enable() && operation.sessionBus().isEnabled();
}

Element LinuxAccessibility::systemWideElement() {
    return isTrusted() ? elementOfSystem() : Element();
}

Element LinuxAccessibility::applicationElement(std::int64_t processIdentifier) {
    if (processIdentifier <= 0)
        return {};
    const bool hasWindow = !_windows.windowsOfApplication(processIdentifier, 0).empty();
    if (hasWindow || processIdentifier == _ownProcessIdentifier
        || AtspiOperation(_clients).application(processIdentifier))
        return elementOfApplication(processIdentifier, 0);
    return {};
}

Element LinuxAccessibility::elementAtPosition(const Point& pointCG) {
    const auto window = _windows.windowAtPosition(pointCG);
    if (!window)
        return {};
    AtspiOperation operation(_clients);
    const Element found = _contents.elementAtPosition(operation, *window, pointCG);
    return found ? found : elementOfWindow(*window);
}

std::optional<std::int64_t> LinuxAccessibility::processIdentifier(const Element& element) {
    const AtspiElement* handle = AtspiElement::of(element);
    if (handle == nullptr || handle->processIdentifier == 0)
        return {};
    return handle->processIdentifier;
}

std::optional<std::vector<std::string>> LinuxAccessibility::attributeNames(const Element& element) {
    ElementsOfKind* const kind = kindOf(element);
    return kind != nullptr ? kind->attributeNames(element) : std::nullopt;
}

bool LinuxAccessibility::hasAttribute(const Element& element, std::string_view attribute) {
    ElementsOfKind* const kind = kindOf(element);
    return kind != nullptr && kind->hasAttribute(element, attribute);
}

Value LinuxAccessibility::copyAttributeValue(const Element& element, std::string_view attribute) {
    ElementsOfKind* const kind = kindOf(element);
    if (kind == nullptr)
        return {};
    // A batch remembers what accessible objects have told field by field, and of all others each value.
    BatchMemory* const batch = kind != &_nodes ? _clients.batches().ofThread() : nullptr;
    if (batch == nullptr)
        return kind->copyAttributeValue(element, attribute);
    if (const Value* known = batch->values.find(element, attribute))
        return *known;
    Value value = kind->copyAttributeValue(element, attribute);
    batch->values.remember(element, attribute, value);
    return value;
}

std::optional<std::int64_t> LinuxAccessibility::attributeValueCount(
    const Element& element, std::string_view attribute) {
    ElementsOfKind* const kind = kindOf(element);
    return kind != nullptr ? kind->attributeValueCount(element, attribute) : std::nullopt;
}

bool LinuxAccessibility::isAttributeSettable(const Element& element, std::string_view attribute) {
    ElementsOfKind* const kind = kindOf(element);
    return kind != nullptr && kind->isAttributeSettable(element, attribute);
}

bool LinuxAccessibility::setAttributeValue(const Element& element, std::string_view attribute, const Value& value) {
    ElementsOfKind* const kind = kindOf(element);
    return kind != nullptr && kind->setAttributeValue(element, attribute, value);
}

std::optional<std::vector<std::string>> LinuxAccessibility::actionNames(const Element& element) {
    ElementsOfKind* const kind = kindOf(element);
    return kind != nullptr ? kind->actionNames(element) : std::nullopt;
}

std::optional<std::string> LinuxAccessibility::actionDescription(const Element& element, std::string_view action) {
    ElementsOfKind* const kind = kindOf(element);
    return kind != nullptr ? kind->actionDescription(element, action) : std::nullopt;
}

bool LinuxAccessibility::performAction(const Element& element, std::string_view action) {
    ElementsOfKind* const kind = kindOf(element);
    return kind != nullptr && kind->performAction(element, action);
}

std::uint32_t LinuxAccessibility::windowWithMenuBar(std::uint32_t window) {
    const auto description = _windows.describe(window);
    if (!description)
        return 0;
    AtspiOperation operation(_clients);
    const auto found = _menuBars.shownBy(operation, *description);
    return found ? found->window.identifier : 0;
}

} // namespace tarragon
