#pragma once

#include "platform/Keyboard.h"

#include <cstdint>
#include <optional>
#include <string>
#include <unordered_map>

namespace tarragon {

// Names keys for people, and finds the key of a name. Keys that type a character are named by it, in the layout that is
// current. Main thread only.
class SRKeyCodeTransformer {
public:
    // The keyboard stays the caller's and outlives the transformer.
    explicit SRKeyCodeTransformer(Keyboard& keyboard);

    static constexpr bool allowsReverseTransformation() { return true; }

    // The name of the key with that virtual key code, of which the low sixteen bits count. Nothing for nothing, for
    // negative codes, and for a key that has no name in the current layout.
    std::optional<std::string> transformedValue(std::optional<std::int64_t> keyCode) const;
    // The virtual key code of a name, as the layout was when the names were last gathered.
    std::optional<std::int64_t> reverseTransformedValue(const std::optional<std::string>& name) const;

    // Gathers the names of all keys in the layout that is current now; done once by the constructor. Of several keys
    // with the same name, the one with the highest code is found.
    void regenerateStringToKeyCodeMapping();

private:
    Keyboard& _keyboard;
    std::unordered_map<std::string, std::int64_t> _keyCodesByName;
};

} // namespace tarragon
