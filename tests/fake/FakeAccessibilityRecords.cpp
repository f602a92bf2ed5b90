// Building, watching and breaking the elements of a FakeAccessibility; the calls of the interface are in
// FakeAccessibility.cpp.
#include "fake/FakeAccessibility.h"
#include "fake/FakeElement.h"
#include "platform/AccessibilityNames.h"

#include <algorithm>

namespace tarragon {

Element FakeAccessibility::addElement(std::int64_t processIdentifier, std::string_view role) {
    const Lock lock(_mutex);
    const std::int64_t identifier = _nextIdentifier++;
    _records[identifier].processIdentifier = processIdentifier;
    Element element = FakeElement::make(identifier);
    setAttribute(element, attribute::Role, std::string(role));
    return element;
}

Element FakeAccessibility::addApplicationElement(std::int64_t processIdentifier) {
    const Lock lock(_mutex);
    Element element = addElement(processIdentifier, role::Application);
    _applications[processIdentifier] = element;
    return element;
}

void FakeAccessibility::setAttribute(const Element& element, std::string_view attribute, const Value& value) {
    const Lock lock(_mutex);
    Record* record = find(element);
    if (!record)
        return;
    listAttributeWithoutValue(element, attribute);
    record->values.insert_or_assign(std::string(attribute), value);
}

void FakeAccessibility::removeAttribute(const Element& element, std::string_view attribute) {
    const Lock lock(_mutex);
    Record* record = find(element);
    if (!record)
        return;
    unlistAttribute(element, attribute);
    record->values.erase(std::string(attribute));
}

void FakeAccessibility::unlistAttribute(const Element& element, std::string_view attribute) {
    const Lock lock(_mutex);
    if (Record* record = find(element))
        std::erase(record->listed, attribute);
}

void FakeAccessibility::listAttributeWithoutValue(const Element& element, std::string_view attribute) {
    const Lock lock(_mutex);
    Record* record = find(element);
    if (record && std::ranges::find(record->listed, attribute) == record->listed.end())
        record->listed.emplace_back(attribute);
}

void FakeAccessibility::setSettable(const Element& element, std::string_view attribute, bool settable) {
    const Lock lock(_mutex);
    Record* record = find(element);
    if (!record)
        return;
    if (settable)
        record->settable.emplace(attribute);
    else
        record->settable.erase(std::string(attribute));
}

void FakeAccessibility::addAction(const Element& element, std::string_view action, std::string_view description) {
    const Lock lock(_mutex);
    if (Record* record = find(element))
        record->actions.push_back({std::string(action), std::string(description), {}});
}

void FakeAccessibility::onAction(const Element& element, std::string_view action, std::function<void()> handler) {
    const Lock lock(_mutex);
    Record* record = find(element);
    if (!record)
        return;
    const auto found = std::ranges::find(record->actions, action, &Action::name);
    if (found == record->actions.end())
        record->actions.push_back({std::string(action), "", std::move(handler)});
    else
        found->handler = std::move(handler);
}

void FakeAccessibility::addChild(const Element& parent, const Element& child) {
    insertChild(parent, child, static_cast<std::size_t>(-1));
}

void FakeAccessibility::insertChild(const Element& parent, const Element& child, std::size_t index) {
    const Lock lock(_mutex);
    Record* record = find(parent);
    if (!record)
        return;
    listAttributeWithoutValue(parent, attribute::Children);
    Value& value = record->values[std::string(attribute::Children)];
    if (!valueAs<std::vector<Element>>(value))
        value = std::vector<Element>();
    auto& children = std::get<std::vector<Element>>(value);
    const auto position = static_cast<std::ptrdiff_t>(std::min(index, children.size()));
    children.insert(children.begin() + position, child);
    setAttribute(child, attribute::Parent, parent);
}

void FakeAccessibility::removeChild(const Element& parent, const Element& child) {
    const Lock lock(_mutex);
    Record* record = find(parent);
    if (!record)
        return;
    const auto value = record->values.find(attribute::Children);
    if (value == record->values.end())
        return;
    if (auto* children = std::get_if<std::vector<Element>>(&value->second))
        std::erase(*children, child);
    removeAttribute(child, attribute::Parent);
}

void FakeAccessibility::destroy(const Element& element) {
    const Lock lock(_mutex);
    Record* record = find(element);
    if (!record)
        return;
    std::vector<Element> children;
    if (const auto value = record->values.find(attribute::Children); value != record->values.end()) {
        if (const auto* elements = valueAs<std::vector<Element>>(value->second))
            children = *elements;
    }
    _records.erase(FakeElement::identifierOf(element));
    std::erase_if(_applications, [&](const auto& entry) { return entry.second == element; });
    for (const Element& child : children)
        destroy(child);
}

void FakeAccessibility::setFocusedApplication(const Element& application) {
    const Lock lock(_mutex);
    _focusedApplication = application;
    if (!_systemWide)
        return;
    if (application)
        setAttribute(_systemWide, attribute::FocusedApplication, application);
    else
        removeAttribute(_systemWide, attribute::FocusedApplication);
}

void FakeAccessibility::addHitArea(const Rect& areaCG, const Element& element) {
    const Lock lock(_mutex);
    _hitAreas.emplace_back(areaCG, element);
}

void FakeAccessibility::setEnabled(bool enabled) {
    const Lock lock(_mutex);
    _enabled = enabled;
}

void FakeAccessibility::setTrusted(bool trusted) {
    const Lock lock(_mutex);
    _trusted = trusted;
}

void FakeAccessibility::setSettings(bool available, bool grants) {
    const Lock lock(_mutex);
    _settingsAvailable = available;
    _settingsGrant = grants;
}

Value FakeAccessibility::attribute(const Element& element, std::string_view attribute) const {
    const Lock lock(_mutex);
    const Record* record = find(element);
    if (!record)
        return {};
    const auto value = record->values.find(attribute);
    return value == record->values.end() ? Value() : value->second;
}

bool FakeAccessibility::exists(const Element& element) const {
    const Lock lock(_mutex);
    return find(element) != nullptr;
}

std::string FakeAccessibility::label(const Element& element) const {
    for (const std::string_view name : {attribute::Title, attribute::Role}) {
        const Value value = attribute(element, name);
        if (const auto* text = valueAs<std::string>(value))
            return *text;
    }
    return element ? "gone" : "nil";
}

std::vector<FakeCall> FakeAccessibility::calls() const {
    const Lock lock(_mutex);
    return _calls;
}

std::vector<FakeCall> FakeAccessibility::callsOf(FakeCall::Operation operation) const {
    std::vector<FakeCall> result = calls();
    std::erase_if(result, [&](const FakeCall& call) { return call.operation != operation; });
    return result;
}

void FakeAccessibility::clearCalls() {
    const Lock lock(_mutex);
    _calls.clear();
    _performed.clear();
    _callCount = 0;
    _callsOutsideBatches = 0;
    _batchCount = 0;
    _deepestBatch = ReadBatchDepth::AsAsked;
}

std::vector<std::pair<Element, std::string>> FakeAccessibility::performedActions() const {
    const Lock lock(_mutex);
    return _performed;
}

std::size_t FakeAccessibility::callCount() const {
    const Lock lock(_mutex);
    return _callCount;
}

std::size_t FakeAccessibility::callsOutsideBatches() const {
    const Lock lock(_mutex);
    return _callsOutsideBatches;
}

std::size_t FakeAccessibility::batchCount() const {
    const Lock lock(_mutex);
    return _batchCount;
}

ReadBatchDepth FakeAccessibility::deepestBatch() const {
    const Lock lock(_mutex);
    return _deepestBatch;
}

int FakeAccessibility::openBatches() const {
    const Lock lock(_mutex);
    const auto found = _openBatches.find(std::this_thread::get_id());
    return found == _openBatches.end() ? 0 : found->second;
}

void FakeAccessibility::setFault(const Element& element, FakeFault fault) {
    const Lock lock(_mutex);
    if (Record* record = find(element))
        record->fault = fault;
}

void FakeAccessibility::setProcessFault(std::int64_t processIdentifier, FakeFault fault) {
    const Lock lock(_mutex);
    _processFaults[processIdentifier] = fault;
}

void FakeAccessibility::failCall(std::size_t number, FakeFault fault) {
    const Lock lock(_mutex);
    _callFaults[_callCount + number] = fault;
}

void FakeAccessibility::beforeCall(std::size_t number, std::function<void()> hook) {
    const Lock lock(_mutex);
    _hooks[_callCount + number] = std::move(hook);
}

void FakeAccessibility::clearFaults() {
    const Lock lock(_mutex);
    _processFaults.clear();
    _waitedFor.clear();
    _callFaults.clear();
    _hooks.clear();
    _secondsWaited = 0;
    for (auto& [identifier, record] : _records)
        record.fault = FakeFault::None;
}

double FakeAccessibility::secondsWaited() const {
    const Lock lock(_mutex);
    return _secondsWaited;
}

} // namespace tarragon
