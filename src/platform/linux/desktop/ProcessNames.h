#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace tarragon {

// The short name of a process; empty when it is gone.
std::string processName(std::int64_t processIdentifier);

// The file names under which a process may have been started, likeliest first: what it calls itself, its program file,
// and for an interpreter the script that it runs. Empty when the process is gone.
std::vector<std::string> executableNames(std::int64_t processIdentifier);

} // namespace tarragon
