#include "triggers/HotKeyModifiers.h"

#include "platform/ModifierFlags.h"

namespace tarragon {

std::uint32_t carbonModifiersFromCocoaFlags(std::int64_t flags) {
    // The Function key is no modifier of a hot key.
    return cocoaToCarbonFlags(static_cast<std::uint32_t>(flags)) & ~modifier::Function;
}

} // namespace tarragon
