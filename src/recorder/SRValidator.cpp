#include "recorder/SRValidator.h"

#include "mirror/Menu.h"
#include "mirror/MenuItem.h"
#include "platform/HotKeys.h"
#include "platform/Texts.h"
#include "platform/UnicodeText.h"
#include "recorder/SRKeyCodeTransformer.h"
#include "recorder/SRModifierFlags.h"

#include <algorithm>
#include <utility>

namespace tarragon {

namespace {

constexpr std::uint32_t ComparedFlags = hotkey::CommandKey | hotkey::OptionKey | hotkey::ShiftKey | hotkey::ControlKey;

// The flags agree in each of the four modifiers; other bits do not matter.
bool modifiersAgree(std::uint32_t first, std::uint32_t second) {
    return (first & ComparedFlags) == (second & ComparedFlags);
}

bool isCombination(const SymbolicHotKey& hotKey, std::int16_t keyCode, std::uint32_t flags) {
    return hotKey.isEnabled && hotKey.keyCode == keyCode && modifiersAgree(hotKey.modifiers, flags);
}

// The desktop may list a combination twice and know only once who has it.
std::string ownerOf(const std::vector<SymbolicHotKey>& hotKeys, std::int16_t keyCode, std::uint32_t flags) {
    const auto found = std::find_if(hotKeys.begin(), hotKeys.end(),
        [&](const SymbolicHotKey& hotKey) { return !hotKey.owner.empty() && isCombination(hotKey, keyCode, flags); });
    return found == hotKeys.end() ? std::string() : found->owner;
}

std::string reasonOfSystem(const std::string& owner) {
    if (owner.empty())
        return translated("SRValidator",
            "it's already used by a system-wide keyboard shortcut. (If you really want to use this key "
            "combination, most shortcuts can be changed in the Keyboard & Mouse panel in System "
            "Preferences.)");
    return withArguments(translated("SRValidator",
                             "it's already used by a system-wide keyboard shortcut, %@. (If you really want to use "
                             "this key combination, most shortcuts can be changed in the Keyboard & Mouse panel in "
                             "System Preferences.)"),
        {owner});
}

} // namespace

SRValidator::SRValidator(
    SRValidatorDelegate* delegate, Keyboard& keyboard, const SRKeyCodeTransformer& transformer, MainMenu mainMenu)
    : _delegate(delegate)
    , _keyboard(keyboard)
    , _transformer(transformer)
    , _mainMenu(std::move(mainMenu)) { }

bool SRValidator::isKeyCodeAndFlagsTaken(std::int16_t keyCode, std::uint32_t flags, SRValidationError* error) {
    std::string reason;
    if (_delegate && _delegate->shortcutValidatorIsKeyCodeAndFlagsTaken(*this, keyCode, flags, reason)) {
        fillError(
            error, keyCode, flags, (reason.empty() ? translated("SRValidator", "it's already used") : reason) + ".");
        return true;
    }

    // A combination that may be the desktop's own is refused rather than allowed.
    const std::optional<std::vector<SymbolicHotKey>> symbolicHotKeys = _keyboard.copySymbolicHotKeys();
    if (!symbolicHotKeys)
        return true;
    for (const SymbolicHotKey& hotKey : *symbolicHotKeys) {
        if (!hotKey.isEnabled)
            continue;
        if (_transformer.transformedValue(keyCode).value_or("").empty())
            return true;
        if (isCombination(hotKey, keyCode, flags)) {
            fillError(error, keyCode, flags, reasonOfSystem(ownerOf(*symbolicHotKeys, keyCode, flags)));
            return true;
        }
    }

    const std::shared_ptr<const Menu> menu = _mainMenu ? _mainMenu() : nullptr;
    return menu && isKeyCodeAndFlagsTakenInMenu(keyCode, flags, *menu, error);
}

bool SRValidator::isKeyCodeAndFlagsTakenInMenu(
    std::int16_t keyCode, std::uint32_t flags, const Menu& menu, SRValidationError* error) const {
    const std::optional<std::string> name = _transformer.transformedValue(keyCode);
    return std::any_of(menu.items().begin(), menu.items().end(), [&](const std::shared_ptr<MenuItem>& item) {
        if (item->hasSubmenu() && isKeyCodeAndFlagsTakenInMenu(keyCode, flags, *item->submenu(), error))
            return true;
        const bool isHit = !item->keyEquivalent().empty() && uppercaseText(item->keyEquivalent()) == name
            && modifiersAgree(cocoaToCarbonFlags(item->keyEquivalentModifierMask()), flags);
        if (isHit)
            fillError(error, keyCode, flags,
                withArguments(
                    translated("SRValidator", "it's already used by the menu item \"%@\"."), {item->title()}));
        return isHit;
    });
}

void SRValidator::fillError(
    SRValidationError* error, std::int16_t keyCode, std::uint32_t flags, const std::string& reason) const {
    if (!error)
        return;
    const std::string combination =
        readableStringForCarbonModifierFlags(flags, _transformer.transformedValue(keyCode).value_or(""));
    error->description =
        withArguments(translated("SRValidator", "The key combination %@ can't be used!"), {combination});
    error->recoverySuggestion = withArguments(
        translated("SRValidator", "The key combination \"%@\" can't be used because %@"), {combination, reason});
    error->recoveryOptions = {translated("SRValidator", "OK")};
}

} // namespace tarragon
