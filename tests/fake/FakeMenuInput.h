#pragma once

#include "platform/MenuInput.h"

#include <cstdint>

namespace tarragon {

// Remembers which window has the input, and refuses the keyboard on demand.
class FakeMenuInput : public MenuInput {
public:
    bool take(std::uint64_t window) override;
    void release() override {
        _window = 0;
        ++_releases;
    }

    // Another program holds the keyboard.
    void setRefused(bool refused) { _isRefused = refused; }
    // 0 while no window has the input.
    std::uint64_t window() const { return _window; }
    int refusals() const { return _refusals; }
    int releases() const { return _releases; }

private:
    std::uint64_t _window = 0;
    bool _isRefused = false;
    int _refusals = 0;
    int _releases = 0;
};

} // namespace tarragon
