#pragma once

#include <cstdint>
#include <string>

namespace tarragon {

// The running program, as the system sees it. Main thread only.
class Process {
public:
    virtual ~Process() = default;

    // Memory that the program occupies at this moment, in bytes; 0 when it cannot be had.
    virtual std::uint64_t residentSize() = 0;

    // Starts a tool of its own that waits for this program to end and then starts the program at the path. Ending is
    // left to the caller. False when the tool could not be started.
    [[nodiscard]] virtual bool relaunchAfterEnd(const std::string& path) = 0;
};

} // namespace tarragon
