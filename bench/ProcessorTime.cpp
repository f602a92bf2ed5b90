#include "ProcessorTime.h"

#include <stdexcept>

#include <time.h>

namespace tarragon {

double processorTimeOf(pid_t process) {
    clockid_t clock = {};
    timespec time = {};
    if (clock_getcpuclockid(process, &clock) != 0 || clock_gettime(clock, &time) != 0)
        throw std::runtime_error("the process has ended");
    return static_cast<double>(time.tv_sec) * 1e3 + static_cast<double>(time.tv_nsec) / 1e6;
}

} // namespace tarragon
