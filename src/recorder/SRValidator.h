#pragma once

#include "platform/Keyboard.h"

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarragon {

class Menu;
class SRKeyCodeTransformer;
class SRValidator;

// Why a key combination cannot be used, in words for the user.
struct SRValidationError {
    std::string description;
    std::string recoverySuggestion;
    std::vector<std::string> recoveryOptions; // titles of buttons
    bool operator==(const SRValidationError&) const = default;
};

// May refuse key combinations of its own accord. Every operation may be left out.
class SRValidatorDelegate {
public:
    virtual ~SRValidatorDelegate() = default;
    // True when the combination is taken; reason then continues the sentence "can't be used because …", and may stay
    // empty. flags are the bits of hotkey::.
    virtual bool shortcutValidatorIsKeyCodeAndFlagsTaken(
        SRValidator& /*validator*/, std::int16_t /*keyCode*/, std::uint32_t /*flags*/, std::string& /*reason*/) {
        return false;
    }
};

// Tells whether a key combination is already used by the desktop or by a menu of this program. Main thread only.
class SRValidator {
public:
    using MainMenu = std::function<std::shared_ptr<const Menu>()>;

    // delegate may be nullptr. mainMenu gives the program's main menu at the moment of asking, or nullptr. All of them
    // stay the caller's and outlive the validator.
    SRValidator(
        SRValidatorDelegate* delegate, Keyboard& keyboard, const SRKeyCodeTransformer& transformer, MainMenu mainMenu);

    // True when the combination is taken: by the delegate's word, as one of the desktop's own, or in the main menu.
    // Also true when the desktop's own combinations cannot be had, and for a key without a name when there are any. An
    // error is filled in when one is asked for and there is something to say. flags are the bits of hotkey::.
    bool isKeyCodeAndFlagsTaken(std::int16_t keyCode, std::uint32_t flags, SRValidationError* error);

    // True when an item of the menu or of its submenus has the combination as its key equivalent.
    bool isKeyCodeAndFlagsTakenInMenu(
        std::int16_t keyCode, std::uint32_t flags, const Menu& menu, SRValidationError* error) const;

private:
    void fillError(
        SRValidationError* error, std::int16_t keyCode, std::uint32_t flags, const std::string& reason) const;

    SRValidatorDelegate* _delegate;
    Keyboard& _keyboard;
    const SRKeyCodeTransformer& _transformer;
    MainMenu _mainMenu;
};

} // namespace tarragon
