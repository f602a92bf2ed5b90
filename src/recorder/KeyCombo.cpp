#include "recorder/KeyCombo.h"

#include "recorder/SRKeyCodeTransformer.h"
#include "recorder/SRModifierFlags.h"

namespace tarragon {

std::optional<std::string> keyComboString(const KeyCombo& combination, const SRKeyCodeTransformer& transformer) {
    if (combination.isEmpty())
        return std::nullopt;
    return stringForCocoaModifierFlags(combination.flags) + transformer.transformedValue(combination.code).value_or("");
}

} // namespace tarragon
