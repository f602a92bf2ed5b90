#include "platform/linux/xkb/X11Modifiers.h"

#include "platform/HotKeys.h"
#include "platform/linux/xkb/KeyCodes.h"

#include <algorithm>
#include <cstddef>
#include <initializer_list>

#include <xcb/xproto.h>

namespace tarragon {

namespace {

constexpr std::uint32_t ScrollLock = 0xFF14;
constexpr std::uint32_t NumLock = 0xFF7F;
constexpr std::uint32_t LeftAlt = 0xFFE9;
constexpr std::uint32_t RightAlt = 0xFFEA;
constexpr std::uint32_t LeftSuper = 0xFFEB;
constexpr std::uint32_t RightSuper = 0xFFEC;

constexpr std::uint16_t AllModifiers = 0xFF;

bool hasSymbol(const X11KeyboardMapping& mapping, std::uint8_t keyCode, std::uint32_t symbol) {
    if (keyCode < mapping.firstKeyCode)
        return false;
    const std::size_t first = std::size_t(keyCode - mapping.firstKeyCode) * mapping.symbolsPerKeyCode;
    const std::size_t end = first + mapping.symbolsPerKeyCode;
    if (end > mapping.symbols.size())
        return false;
    const auto begin = mapping.symbols.begin();
    return std::find(begin + std::ptrdiff_t(first), begin + std::ptrdiff_t(end), symbol) != begin + std::ptrdiff_t(end);
}

// The bit of the first of Mod1 to Mod5 that one of the symbols sets; 0 when none does.
std::uint16_t bitOfSymbols(const X11KeyboardMapping& mapping, std::initializer_list<std::uint32_t> symbols) {
    constexpr std::size_t Mod1 = 3;
    const std::size_t count = mapping.keyCodesPerModifier;
    for (std::size_t modifier = Mod1; modifier < 8 && (modifier + 1) * count <= mapping.modifierKeyCodes.size();
         ++modifier) {
        for (std::size_t index = modifier * count; index < (modifier + 1) * count; ++index) {
            const std::uint8_t keyCode = mapping.modifierKeyCodes[index];
            const auto isOnKey = [&](std::uint32_t symbol) { return hasSymbol(mapping, keyCode, symbol); };
            if (keyCode != 0 && std::any_of(symbols.begin(), symbols.end(), isOnKey))
                return static_cast<std::uint16_t>(1U << modifier);
        }
    }
    return 0;
}

} // namespace

std::uint16_t X11Modifiers::bitsOfHotKey(std::uint32_t hotKeyModifiers) const {
    std::uint32_t bits = 0;
    if ((hotKeyModifiers & hotkey::CommandKey) != 0)
        bits |= XCB_MOD_MASK_CONTROL;
    if ((hotKeyModifiers & hotkey::OptionKey) != 0)
        bits |= alt;
    if ((hotKeyModifiers & hotkey::ControlKey) != 0)
        bits |= super;
    if ((hotKeyModifiers & hotkey::ShiftKey) != 0)
        bits |= XCB_MOD_MASK_SHIFT;
    return static_cast<std::uint16_t>(bits);
}

std::uint32_t X11Modifiers::hotKeyModifiersOf(std::uint16_t state) const {
    std::uint32_t hotKeyModifiers = 0;
    if ((state & XCB_MOD_MASK_CONTROL) != 0)
        hotKeyModifiers |= hotkey::CommandKey;
    if ((state & alt) != 0)
        hotKeyModifiers |= hotkey::OptionKey;
    if ((state & super) != 0)
        hotKeyModifiers |= hotkey::ControlKey;
    if ((state & XCB_MOD_MASK_SHIFT) != 0)
        hotKeyModifiers |= hotkey::ShiftKey;
    return hotKeyModifiers;
}

std::uint16_t X11Modifiers::withoutLocks(std::uint16_t state) const {
    std::uint32_t locks = 0;
    for (const std::uint16_t combination : lockCombinations)
        locks |= combination;
    return static_cast<std::uint16_t>(state & AllModifiers & ~locks);
}

X11Modifiers modifiersOfMapping(const X11KeyboardMapping& mapping) {
    X11Modifiers modifiers;
    modifiers.alt = bitOfSymbols(mapping, {LeftAlt, RightAlt});
    if (modifiers.alt == 0)
        modifiers.alt = XCB_MOD_MASK_1;
    modifiers.super = bitOfSymbols(mapping, {LeftSuper, RightSuper});
    if (modifiers.super == 0)
        modifiers.super = XCB_MOD_MASK_4;

    modifiers.lockCombinations = {0};
    for (const std::uint16_t lock : {static_cast<std::uint16_t>(XCB_MOD_MASK_LOCK), bitOfSymbols(mapping, {NumLock}),
             bitOfSymbols(mapping, {ScrollLock})}) {
        // A strange mapping may have a lock on a bit that counts for something else.
        const bool isFree = lock != 0 && lock != modifiers.alt && lock != modifiers.super
            && std::find(modifiers.lockCombinations.begin(), modifiers.lockCombinations.end(), lock)
                == modifiers.lockCombinations.end();
        if (!isFree)
            continue;
        const std::vector<std::uint16_t> before = modifiers.lockCombinations;
        for (const std::uint16_t combination : before)
            modifiers.lockCombinations.push_back(combination | lock);
    }
    return modifiers;
}

std::string nameOfHotKey(std::uint32_t virtualKeyCode, std::uint32_t hotKeyModifiers) {
    std::string name;
    if ((hotKeyModifiers & hotkey::CommandKey) != 0)
        name += "Ctrl+";
    if ((hotKeyModifiers & hotkey::OptionKey) != 0)
        name += "Alt+";
    if ((hotKeyModifiers & hotkey::ControlKey) != 0)
        name += "Super+";
    if ((hotKeyModifiers & hotkey::ShiftKey) != 0)
        name += "Shift+";
    const std::string key = keyName(virtualKeyCode);
    return name + (key.empty() ? "key " + std::to_string(virtualKeyCode) : key);
}

} // namespace tarragon
