#pragma once

#include "platform/Geometry.h"

#include <cstdint>
#include <random>

namespace tarragon {

// Values that are the same in every run.
class RandomValues {
public:
    std::int64_t whole(std::int64_t lowest, std::int64_t highest) {
        return std::uniform_int_distribution<std::int64_t>(lowest, highest)(_engine);
    }
    bool truth() { return whole(0, 1) == 1; }
    // A multiple of a quarter point, so that limits are met exactly now and then and sums are exact.
    double quarters(std::int64_t lowest, std::int64_t highest) {
        return static_cast<double>(whole(lowest * 4, highest * 4)) / 4;
    }
    double real(double lowest, double highest) {
        return std::uniform_real_distribution<double>(lowest, highest)(_engine);
    }
    Rect rect(std::int64_t farthest, std::int64_t largest) {
        return {{quarters(-farthest, farthest), quarters(-farthest, farthest)},
            {quarters(0, largest), quarters(0, largest)}};
    }

private:
    std::mt19937 _engine{20}; // NOLINT(bugprone-random-generator-seed)
};

} // namespace tarragon
