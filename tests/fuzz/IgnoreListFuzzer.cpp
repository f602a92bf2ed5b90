#include "fuzz/IgnoreListCheck.h"

#include <cstddef>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    tarragon::checkIgnoreListSurvives({bytes, size});
    return 0;
}
