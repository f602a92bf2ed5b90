#include "platform/DefaultsObservers.h"

#include <algorithm>
#include <utility>

namespace tarragon {

DefaultsObserver DefaultsObservers::add(const std::string& keyPath, Defaults::Observer observer) {
    _entries.push_back({++_lastName, keyPath, std::move(observer)});
    return _lastName;
}

void DefaultsObservers::remove(DefaultsObserver observer) {
    std::erase_if(_entries, [&](const Entry& entry) { return entry.name == observer; });
}

void DefaultsObservers::tell(const std::string& keyPath) const {
    std::vector<DefaultsObserver> names;
    for (const Entry& entry : _entries) {
        if (entry.keyPath == keyPath)
            names.push_back(entry.name);
    }
    for (const DefaultsObserver name : names) {
        const auto found = std::ranges::find(_entries, name, &Entry::name);
        if (found == _entries.end())
            continue;
        // A copy, because the observer may remove itself.
        const Defaults::Observer observer = found->observer;
        observer(keyPath);
    }
}

std::vector<std::string> DefaultsObservers::keyPaths() const {
    std::vector<std::string> keyPaths;
    for (const Entry& entry : _entries)
        keyPaths.push_back(entry.keyPath);
    return keyPaths;
}

} // namespace tarragon
