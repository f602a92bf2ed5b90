#pragma once

#include "platform/Keyboard.h"

#include <map>

namespace tarragon {

// A keyboard in memory, with a US layout to begin with and no combinations of the desktop's own.
class FakeKeyboard : public Keyboard {
public:
    FakeKeyboard();

    // What a key types from now on; nothing for no character.
    void setTyped(std::uint16_t keyCode, std::optional<std::string> text);
    // The layout cannot be read at all.
    void setLayoutReadable(bool readable) { _layoutReadable = readable; }
    // nothing for a desktop that does not tell.
    void setSymbolicHotKeys(std::optional<std::vector<SymbolicHotKey>> hotKeys) { _hotKeys = std::move(hotKeys); }

    std::optional<std::string> translateKeyCode(std::uint16_t keyCode) override;
    std::optional<std::vector<SymbolicHotKey>> copySymbolicHotKeys() override { return _hotKeys; }

private:
    std::map<std::uint16_t, std::string> _typed;
    std::optional<std::vector<SymbolicHotKey>> _hotKeys = std::vector<SymbolicHotKey>();
    bool _layoutReadable = true;
};

} // namespace tarragon
