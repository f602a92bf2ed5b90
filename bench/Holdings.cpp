#include "Holdings.h"

#include "ProcessTree.h"
#include "Wait.h"

#include <cstdio>
#include <fstream>
#include <stdexcept>

namespace tarragon {

namespace {

constexpr long MostGrowth = 1024 * 1024; // bytes
constexpr e2e::Duration Patience{20000};

long childrenOf(pid_t process) {
    const std::string name = std::to_string(process);
    std::ifstream file("/proc/" + name + "/task/" + name + "/children");
    long count = 0;
    for (pid_t child = 0; file >> child;)
        ++count;
    return count;
}

} // namespace

long entriesOf(const std::filesystem::path& folder) {
    std::error_code ignored;
    long count = 0;
    for (const auto& entry : std::filesystem::directory_iterator(folder, ignored)) {
        static_cast<void>(entry);
        ++count;
    }
    return count;
}

double mebibytes(long bytes) {
    return static_cast<double>(bytes) / 1024 / 1024;
}

Holdings holdingsOf(e2e::XDisplay& display, pid_t process) {
    const std::filesystem::path folder = "/proc/" + std::to_string(process);
    return {e2e::residentSizeOf(process), entriesOf(folder / "fd"), entriesOf(folder / "task"), childrenOf(process),
        xResourcesOf(display, process)};
}

Holdings restingHoldingsOf(e2e::XDisplay& display, pid_t process) {
    Holdings holdings;
    const bool rested = e2e::waitUntil(
        [&] {
            holdings = holdingsOf(display, process);
            // Longer than a filling waits for an application that is busy.
            return e2e::holdsFor(e2e::Duration(1500), [&] {
                const Holdings now = holdingsOf(display, process);
                return now.memory == holdings.memory && now.descriptors == holdings.descriptors
                    && now.threads == holdings.threads && now.x == holdings.x;
            });
        },
        Patience);
    if (!rested)
        throw std::runtime_error("the agent does not come to rest");
    return holdings;
}

bool nothingLeaked(const Holdings& first, const Holdings& last, const std::string& since) {
    const long growth = last.memory - first.memory;
    std::printf("%s: %+.3f MiB (less than 1 MiB), %+ld descriptors, %+ld threads, %ld children, %+ld connections, "
                "%+ld X resources\n",
        since.c_str(), mebibytes(growth), last.descriptors - first.descriptors, last.threads - first.threads,
        last.children, last.x.connections - first.x.connections, last.x.resources - first.x.resources);
    return growth < MostGrowth && last.descriptors <= first.descriptors && last.threads <= first.threads
        && last.children == 0 && last.x.connections <= first.x.connections && last.x.resources <= first.x.resources;
}

} // namespace tarragon
