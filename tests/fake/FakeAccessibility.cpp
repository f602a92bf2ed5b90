#include "fake/FakeAccessibility.h"

#include "fake/FakeElement.h"
#include "platform/AccessibilityNames.h"

#include <algorithm>

namespace tarragon {

namespace {

using Operation = FakeCall::Operation;

} // namespace

const FakeAccessibility::Record* FakeAccessibility::find(const Element& element) const {
    const auto found = _records.find(FakeElement::identifierOf(element));
    return found == _records.end() ? nullptr : &found->second;
}

FakeAccessibility::Record* FakeAccessibility::find(const Element& element) {
    return const_cast<Record*>(std::as_const(*this).find(element)); // NOLINT(cppcoreguidelines-pro-type-const-cast)
}

FakeFault FakeAccessibility::enter(Lock& lock, FakeCall call) {
    const std::size_t number = _callCount++;
    if (_openBatches[std::this_thread::get_id()] == 0)
        ++_callsOutsideBatches;
    const Element element = call.element;
    _calls.push_back(std::move(call));
    if (const auto found = _hooks.find(number); found != _hooks.end()) {
        const std::function<void()> hook = found->second;
        // It may take locks that are held elsewhere while we are called.
        lock.unlock();
        hook();
        lock.lock();
    }

    FakeFault fault = faultOf(element);
    if (const auto found = _callFaults.find(number); found != _callFaults.end())
        fault = found->second;
    if (fault == FakeFault::Slow)
        waitFor(element);
    if (fault == FakeFault::Disappearing) {
        destroy(element);
        return FakeFault::None;
    }
    return fault;
}

FakeFault FakeAccessibility::faultOf(const Element& element) {
    const Record* record = find(element);
    if (!record)
        return FakeFault::None;
    if (record->fault != FakeFault::None)
        return record->fault;
    const auto found = _processFaults.find(record->processIdentifier);
    return found == _processFaults.end() ? FakeFault::None : found->second;
}

void FakeAccessibility::waitFor(const Element& element) {
    const Record* record = find(element);
    if (_waitedFor.insert(record ? record->processIdentifier : 0).second)
        _secondsWaited += 1.0;
}

Value FakeAccessibility::wrongTypeOf(const Value& value) {
    if (isNil(value))
        return value;
    if (valueAs<std::int64_t>(value))
        return std::string("nonsense");
    return std::int64_t{4711};
}

bool FakeAccessibility::isEnabled() {
    Lock lock(_mutex);
    return !failsReads(enter(lock, {Operation::IsEnabled, {}, {}, {}})) && _enabled;
}

bool FakeAccessibility::isTrusted() {
    Lock lock(_mutex);
    return !failsReads(enter(lock, {Operation::IsTrusted, {}, {}, {}})) && _trusted;
}

bool FakeAccessibility::openSettings() {
    Lock lock(_mutex);
    const FakeFault fault = enter(lock, {Operation::OpenSettings, {}, {}, {}});
    if (fault != FakeFault::None || !_settingsAvailable)
        return false;
    if (_settingsGrant)
        _enabled = _trusted = true;
    return true;
}

Element FakeAccessibility::systemWideElement() {
    Lock lock(_mutex);
    if (failsReads(enter(lock, {Operation::SystemWideElement, {}, {}, {}})) || !_trusted)
        return {};
    if (!_systemWide)
        _systemWide = addElement(0, role::SystemWide);
    setFocusedApplication(_focusedApplication);
    return _systemWide;
}

Element FakeAccessibility::applicationElement(std::int64_t processIdentifier) {
    Lock lock(_mutex);
    if (failsReads(enter(lock, {Operation::ApplicationElement, {}, {}, {}})))
        return {};
    const auto found = _applications.find(processIdentifier);
    return found == _applications.end() ? Element() : found->second;
}

Element FakeAccessibility::elementAtPosition(const Point& pointCG) {
    Lock lock(_mutex);
    if (failsReads(enter(lock, {Operation::ElementAtPosition, {}, {}, pointCG})))
        return {};
    const auto top = std::find_if(_hitAreas.rbegin(), _hitAreas.rend(),
        [&](const auto& area) { return contains(area.first, pointCG) && find(area.second); });
    return top == _hitAreas.rend() ? Element() : top->second;
}

std::optional<std::int64_t> FakeAccessibility::processIdentifier(const Element& element) {
    Lock lock(_mutex);
    const FakeFault fault = enter(lock, {Operation::ProcessIdentifier, element, {}, {}});
    const Record* record = find(element);
    if (!record || failsReads(fault))
        return std::nullopt;
    return record->processIdentifier;
}

std::optional<std::vector<std::string>> FakeAccessibility::attributeNames(const Element& element) {
    Lock lock(_mutex);
    const FakeFault fault = enter(lock, {Operation::AttributeNames, element, {}, {}});
    const Record* record = find(element);
    if (!record || failsReads(fault))
        return std::nullopt;
    if (fault == FakeFault::WrongType)
        return std::vector<std::string>{"", "AXNonsense"};
    return record->listed;
}

Value FakeAccessibility::copyAttributeValue(const Element& element, std::string_view attribute) {
    Lock lock(_mutex);
    const FakeFault fault = enter(lock, {Operation::CopyAttributeValue, element, std::string(attribute), {}});
    const Record* record = find(element);
    if (!record || failsReads(fault))
        return {};
    const auto value = record->values.find(attribute);
    if (value == record->values.end())
        return {};
    return fault == FakeFault::WrongType ? wrongTypeOf(value->second) : value->second;
}

std::optional<std::int64_t> FakeAccessibility::attributeValueCount(const Element& element, std::string_view attribute) {
    Lock lock(_mutex);
    const FakeFault fault = enter(lock, {Operation::AttributeValueCount, element, std::string(attribute), {}});
    const Record* record = find(element);
    if (!record || failsReads(fault))
        return std::nullopt;
    const auto value = record->values.find(attribute);
    if (value == record->values.end())
        return std::nullopt;
    const auto* elements = valueAs<std::vector<Element>>(value->second);
    if (!elements)
        return std::nullopt;
    return fault == FakeFault::WrongType ? -1 : static_cast<std::int64_t>(elements->size());
}

bool FakeAccessibility::isAttributeSettable(const Element& element, std::string_view attribute) {
    Lock lock(_mutex);
    const FakeFault fault = enter(lock, {Operation::IsAttributeSettable, element, std::string(attribute), {}});
    const Record* record = find(element);
    return record && !failsReads(fault) && record->settable.contains(attribute);
}

bool FakeAccessibility::setAttributeValue(const Element& element, std::string_view attribute, const Value& value) {
    Lock lock(_mutex);
    const FakeFault fault = enter(lock, {Operation::SetAttributeValue, element, std::string(attribute), value});
    Record* record = find(element);
    if (!record || fault != FakeFault::None || !record->settable.contains(attribute))
        return false;
    record->values.insert_or_assign(std::string(attribute), value);
    return true;
}

std::optional<std::vector<std::string>> FakeAccessibility::actionNames(const Element& element) {
    Lock lock(_mutex);
    const FakeFault fault = enter(lock, {Operation::ActionNames, element, {}, {}});
    const Record* record = find(element);
    if (!record || failsReads(fault))
        return std::nullopt;
    if (fault == FakeFault::WrongType)
        return std::vector<std::string>{"", "AXNonsense"};
    std::vector<std::string> names;
    for (const Action& each : record->actions)
        names.push_back(each.name);
    return names;
}

std::optional<std::string> FakeAccessibility::actionDescription(const Element& element, std::string_view action) {
    Lock lock(_mutex);
    const FakeFault fault = enter(lock, {Operation::ActionDescription, element, std::string(action), {}});
    const Record* record = find(element);
    if (!record || failsReads(fault))
        return std::nullopt;
    const auto found = std::ranges::find(record->actions, action, &Action::name);
    if (found == record->actions.end())
        return std::nullopt;
    return found->description;
}

bool FakeAccessibility::performAction(const Element& element, std::string_view action) {
    std::function<void()> handler;
    {
        Lock lock(_mutex);
        const FakeFault fault = enter(lock, {Operation::PerformAction, element, std::string(action), {}});
        const Record* record = find(element);
        if (!record || fault != FakeFault::None)
            return false;
        const auto found = std::ranges::find(record->actions, action, &Action::name);
        if (found == record->actions.end())
            return false;
        handler = found->handler;
        _performed.emplace_back(element, std::string(action));
    }
    if (handler)
        handler();
    return true;
}

void FakeAccessibility::beginReadBatch(ReadBatchDepth depth) {
    const Lock lock(_mutex);
    _deepestBatch = std::max(_deepestBatch, depth);
    _calls.push_back({Operation::BeginReadBatch, {}, {}, {}});
    if (_openBatches[std::this_thread::get_id()]++ == 0)
        ++_batchCount;
}

void FakeAccessibility::readAhead(
    std::span<const Element> elements, [[maybe_unused]] std::span<const std::string_view> attributes) {
    const std::lock_guard lock(_mutex);
    if (openBatches() > 0)
        _readAhead.insert(_readAhead.end(), elements.begin(), elements.end());
}

std::vector<Element> FakeAccessibility::elementsReadAhead() const {
    const std::lock_guard lock(_mutex);
    return _readAhead;
}

void FakeAccessibility::endReadBatch() {
    const Lock lock(_mutex);
    _calls.push_back({Operation::EndReadBatch, {}, {}, {}});
    --_openBatches[std::this_thread::get_id()];
}

} // namespace tarragon
