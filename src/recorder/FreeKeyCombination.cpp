#include "recorder/FreeKeyCombination.h"

#include "platform/Keyboard.h"
#include "platform/ModifierFlags.h"
#include "recorder/SRKeyCodeTransformer.h"

#include <algorithm>
#include <array>

namespace tarragon {

namespace {

constexpr std::int16_t Space = 49;
constexpr std::int16_t M = 46; // as in menu
constexpr std::int16_t F12 = 111;

// What the hand reaches most easily comes first. Not among them are combinations that applications themselves use
// (Command, which is Ctrl on many keyboards, with one key; Option with a letter, which opens menus there), that input
// methods wait for (Command with the space bar), that consoles are switched with (Command, Option and a function key),
// and keys that are needed for typing.
constexpr std::array<KeyCombo, 9> Candidates{{
    {Space, modifier::Option}, // as it is when nothing was chosen
    {Space, modifier::Control},
    {Space, modifier::Command | modifier::Option},
    {Space, modifier::Option | modifier::Shift},
    {M, modifier::Control},
    {M, modifier::Command | modifier::Option},
    {Space, modifier::Control | modifier::Option},
    {F12, modifier::Control},
    {Space, modifier::Command | modifier::Option | modifier::Shift},
}};

} // namespace

std::optional<KeyCombo> freeKeyCombination(Keyboard& keyboard, const SRKeyCodeTransformer& transformer) {
    const std::optional<std::vector<SymbolicHotKey>> taken = keyboard.copySymbolicHotKeys();
    if (!taken)
        return std::nullopt;
    const auto* const found = std::find_if(Candidates.begin(), Candidates.end(), [&](const KeyCombo& candidate) {
        const std::uint32_t modifiers = cocoaToCarbonFlags(candidate.flags);
        // A key that types nothing in this layout could not be named to the user.
        return transformer.transformedValue(candidate.code)
            && std::none_of(taken->begin(), taken->end(), [&](const SymbolicHotKey& hotKey) {
                   return hotKey.isEnabled && hotKey.keyCode == candidate.code && hotKey.modifiers == modifiers;
               });
    });
    return found == Candidates.end() ? std::nullopt : std::optional(*found);
}

} // namespace tarragon
