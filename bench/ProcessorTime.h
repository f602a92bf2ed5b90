#pragma once

#include <sys/types.h>

namespace tarragon {

// Milliseconds of processor time that all threads of a process have taken so far, to the microsecond. Throws
// std::runtime_error when there is no such process.
double processorTimeOf(pid_t process);

} // namespace tarragon
