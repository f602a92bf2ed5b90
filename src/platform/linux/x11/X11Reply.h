#pragma once

#include <cstdlib>
#include <memory>

namespace tarragon {

struct X11FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};

// A reply, event or error of the X server, which XCB hands over as memory to be freed. Empty when the request failed.
template <typename T>
using X11Reply = std::unique_ptr<T, X11FreeMemory>;

} // namespace tarragon
