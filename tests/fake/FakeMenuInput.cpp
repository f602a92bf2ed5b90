#include "fake/FakeMenuInput.h"

namespace tarragon {

bool FakeMenuInput::take(std::uint64_t window) {
    if (_isRefused) {
        ++_refusals;
        return false;
    }
    _window = window;
    return true;
}

} // namespace tarragon
