#include "fake/FakeDefaults.h"

#include <utility>

namespace tarragon {

void FakeDefaults::writeFromOtherProcess(const std::string& key, std::optional<DefaultsValue> value) {
    _fromOtherProcess[key] = std::move(value);
}

void FakeDefaults::setWritable(bool writable) {
    _writable = writable;
    if (writable)
        setHasUnwrittenChanges(false);
}

void FakeDefaults::setHasUnwrittenChanges(bool has) {
    if (std::exchange(_hasUnwrittenChanges, has) != has)
        _observers.tell(std::string(UnwrittenChangesKeyPath));
}

std::optional<DefaultsValue> FakeDefaults::storedValue(std::string_view key) const {
    const auto found = _stored.find(key);
    return found == _stored.end() ? std::nullopt : std::optional(found->second);
}

void FakeDefaults::registerDefaults(const DefaultsDictionary& values) {
    for (const auto& [key, value] : values) {
        _registered.insert_or_assign(key, value);
        _registeredInOrder.emplace_back(key, value);
    }
}

void FakeDefaults::setInitialValues(const DefaultsDictionary& values) {
    _initialValues = values;
}

std::optional<DefaultsValue> FakeDefaults::value(std::string_view key) {
    _readKeys.emplace_back(key);
    if (const auto found = _stored.find(key); found != _stored.end())
        return found->second;
    const auto found = _registered.find(key);
    return found == _registered.end() ? std::nullopt : std::optional(found->second);
}

void FakeDefaults::apply(const std::string& key, const std::optional<DefaultsValue>& value) {
    if (value)
        _stored.insert_or_assign(key, *value);
    else
        _stored.erase(key);
    _observers.tell("values." + key);
}

bool FakeDefaults::setValue(std::string_view key, const DefaultsValue& value) {
    _changedKeys.emplace_back(key);
    apply(std::string(key), value);
    setHasUnwrittenChanges(!_writable);
    return _writable;
}

bool FakeDefaults::removeValue(std::string_view key) {
    _changedKeys.emplace_back(key);
    apply(std::string(key), std::nullopt);
    setHasUnwrittenChanges(!_writable);
    return _writable;
}

void FakeDefaults::revertToInitialValues() {
    const DefaultsDictionary values = _initialValues;
    for (const auto& [key, value] : values)
        setValue(key, value);
}

bool FakeDefaults::synchronize() {
    ++_synchronizeCount;
    const auto changes = std::exchange(_fromOtherProcess, {});
    for (const auto& [key, value] : changes)
        apply(key, value);
    return _writable;
}

DefaultsObserver FakeDefaults::addObserver(const std::string& keyPath, Observer observer) {
    return _observers.add(keyPath, std::move(observer));
}

void FakeDefaults::removeObserver(DefaultsObserver observer) {
    _observers.remove(observer);
}

} // namespace tarragon
