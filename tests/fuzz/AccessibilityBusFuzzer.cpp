#include "fuzz/AccessibilityBusCheck.h"

#include <cstddef>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
    tarragon::checkReaderSurvives({bytes, size});
    return 0;
}
