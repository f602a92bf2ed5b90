#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tarragon {

struct ListedWindow {
    std::uint64_t identifier = 0;
    std::string title;
    std::string ownerName; // what people call its application; empty when unknown
    std::int64_t processIdentifier = 0; // of its application; 0 when unknown
    bool operator==(const ListedWindow&) const = default;
};

// The windows of all applications. Failures are silent. Main thread only.
class WindowList {
public:
    virtual ~WindowList() = default;

    // The windows that are on the screen now, front to back; minimised ones and those of other workspaces are not.
    // Empty when the list cannot be had.
    virtual std::vector<ListedWindow> onScreenWindows() = 0;
    // Brings the window and its application to the front. False when it could not be asked for.
    virtual bool raise(std::uint64_t identifier) = 0;
};

} // namespace tarragon
