#pragma once

#include "platform/Defaults.h"

#include <string>
#include <vector>

namespace tarragon {

// The observers of one store of settings. Main thread only.
class DefaultsObservers {
public:
    DefaultsObserver add(const std::string& keyPath, Defaults::Observer observer);
    void remove(DefaultsObserver observer);
    // Calls the observers of that key path in the order of adding. One of them may add others, which are not called
    // this time, and remove any, which are not called any more.
    void tell(const std::string& keyPath) const;
    // What is observed, in the order of adding.
    std::vector<std::string> keyPaths() const;

private:
    struct Entry {
        DefaultsObserver name = 0;
        std::string keyPath;
        Defaults::Observer observer;
    };

    std::vector<Entry> _entries;
    DefaultsObserver _lastName = 0;
};

} // namespace tarragon
