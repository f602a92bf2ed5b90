#pragma once

#include "platform/DefaultsObservers.h"

#include <map>

namespace tarragon {

// Settings in memory. Another process's writes are seen at the next synchronize.
class FakeDefaults : public Defaults {
public:
    // What another process has written; nothing for a key that it removed.
    void writeFromOtherProcess(const std::string& key, std::optional<DefaultsValue> value);
    // What is set while it is not writable stays unwritten until it is writable again.
    void setWritable(bool writable);
    // The user's value alone, without the registered ones.
    std::optional<DefaultsValue> storedValue(std::string_view key) const;
    // Keys that were set or removed, in order.
    const std::vector<std::string>& changedKeys() const { return _changedKeys; }
    const DefaultsDictionary& registeredDefaults() const { return _registeredInOrder; }
    const DefaultsDictionary& initialValues() const { return _initialValues; }
    // Keys that were read, in order, each as often as it was.
    const std::vector<std::string>& readKeys() const { return _readKeys; }
    // The key paths that are observed, in order.
    std::vector<std::string> observedKeyPaths() const { return _observers.keyPaths(); }
    int synchronizeCount() const { return _synchronizeCount; }

    void registerDefaults(const DefaultsDictionary& values) override;
    void setInitialValues(const DefaultsDictionary& values) override;
    std::optional<DefaultsValue> value(std::string_view key) override;
    bool setValue(std::string_view key, const DefaultsValue& value) override;
    bool removeValue(std::string_view key) override;
    void revertToInitialValues() override;
    bool synchronize() override;
    bool hasUnwrittenChanges() override { return _hasUnwrittenChanges; }
    DefaultsObserver addObserver(const std::string& keyPath, Observer observer) override;
    void removeObserver(DefaultsObserver observer) override;

private:
    void apply(const std::string& key, const std::optional<DefaultsValue>& value);
    void setHasUnwrittenChanges(bool has);

    std::map<std::string, DefaultsValue, std::less<>> _stored;
    std::map<std::string, DefaultsValue, std::less<>> _registered;
    std::map<std::string, std::optional<DefaultsValue>> _fromOtherProcess;
    DefaultsDictionary _registeredInOrder;
    DefaultsDictionary _initialValues;
    DefaultsObservers _observers;
    std::vector<std::string> _changedKeys;
    std::vector<std::string> _readKeys;
    int _synchronizeCount = 0;
    bool _writable = true;
    bool _hasUnwrittenChanges = false;
};

} // namespace tarragon
