#include "fuzz/IgnoreListCheck.h"

#include <cstddef>
#include <cstdio>
#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    const std::string complaint = tarragon::complaintAboutIgnoreList({bytes, size});
    if (complaint.empty())
        return 0;
    std::fprintf(stderr, "%s\n", complaint.c_str());
    std::abort();
}
