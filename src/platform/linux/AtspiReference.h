#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <string>
#include <string_view>

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
    // Paths of one application differ at their ends; the names of applications hardly ever make a difference.
    std::size_t operator()(const AtspiReference& reference) const {
        const std::string_view path = reference.path;
        constexpr std::size_t length = 16;
        const std::string_view end = path.substr(path.size() - std::min(length, path.size()));
        return std::hash<std::string_view>()(end);
    }
};

} // namespace tarragon
