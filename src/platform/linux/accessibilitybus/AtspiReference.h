#pragma once

#include <cstddef>
#include <functional>
#include <string>

namespace tarragon {

// The address of one accessible object: the unique bus name of its application and its object path there.
struct AtspiReference {
    std::string busName;
    std::string path;

    // What applications answer when there is no object: an empty path, or the well-known null path.
    bool isNull() const { return busName.empty() || path.empty() || path == "/org/a11y/atspi/null"; }
    friend bool operator==(const AtspiReference&, const AtspiReference&) = default;
};

struct AtspiReferenceHash {
    std::size_t operator()(const AtspiReference& reference) const {
        const std::hash<std::string> hash;
        return hash(reference.path) * 31 + hash(reference.busName);
    }
};

} // namespace tarragon
