#pragma once

#include "XResources.h"

#include <filesystem>
#include <string>

#include <sys/types.h>

namespace tarragon {

// What a process has.
struct Holdings {
    long memory = 0; // bytes
    long descriptors = 0;
    long threads = 0;
    long children = 0; // zombies count
    XResources x;
};

// 0 for a folder that is not there.
long entriesOf(const std::filesystem::path& folder);
double mebibytes(long bytes);

Holdings holdingsOf(e2e::XDisplay& display, pid_t process);
// Once nothing is under way any more. Throws std::runtime_error when that does not come about.
Holdings restingHoldingsOf(e2e::XDisplay& display, pid_t process);
// Prints how the last ones differ from the first.
[[nodiscard]] bool nothingLeaked(const Holdings& first, const Holdings& last, const std::string& since);

} // namespace tarragon
