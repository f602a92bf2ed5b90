#include "fuzz/AccessibilityBusCheck.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <vector>

namespace tarragon {
namespace {

TEST(AccessibilityBusCorpus, IsSurvivedByTheReader) {
    int replayed = 0;
    for (const auto& entry : std::filesystem::directory_iterator(TARRAGON_BUS_CORPUS)) {
        std::ifstream file(entry.path(), std::ios::binary);
        const std::vector<char> bytes{std::istreambuf_iterator<char>(file), {}};
        checkReaderSurvives({reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size()});
        ++replayed;
    }
    ::unsetenv("AT_SPI_BUS_ADDRESS");
    EXPECT_GT(replayed, 10);
}

} // namespace
} // namespace tarragon
