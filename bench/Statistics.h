#pragma once

#include <algorithm>
#include <chrono>
#include <cstddef>
#include <vector>

namespace tarragon {

// Times in milliseconds.
class Samples {
public:
    void add(double milliseconds) { _values.push_back(milliseconds); }

    template <typename Work>
    void time(Work work) {
        const auto start = std::chrono::steady_clock::now();
        work();
        add(std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - start).count());
    }

    std::size_t count() const { return _values.size(); }
    double median() const { return quantile(0.5); }
    // 0 when there are no samples.
    double quantile(double share) const {
        if (_values.empty())
            return 0;
        std::vector<double> sorted = _values;
        std::sort(sorted.begin(), sorted.end());
        const auto position = static_cast<std::size_t>(share * static_cast<double>(sorted.size()));
        return sorted[std::min(position, sorted.size() - 1)];
    }

private:
    std::vector<double> _values;
};

} // namespace tarragon
