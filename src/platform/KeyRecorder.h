#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace tarragon {

// A key that has gone down or up while keys were recorded.
struct RecordedKey {
    // The system's own virtual key code, by position on the keyboard. Nothing for a modifier alone, and for a key that
    // has no such code.
    std::optional<std::uint16_t> keyCode;
    std::uint32_t flags = 0; // Cocoa flags of the modifiers that are held now, this key's own included
    bool isPressed = false; // false for a release
    bool isModifier = false;
    bool operator==(const RecordedKey&) const = default;
};

// Keys go to the recorder for as long as this lives.
class KeyRecording {
public:
    virtual ~KeyRecording() = default;
};

// Hears every key, also combinations that the desktop keeps for itself, so that the user can choose one by pressing it.
// Main thread only; handlers are called from the run loop.
class KeyRecorder {
public:
    virtual ~KeyRecorder() = default;

    // While the recording lives the handler gets every press (repetitions left out) and every release, and nobody else
    // does. ended is called once if the desktop takes the keys away again. nullptr when the keys cannot be had, as
    // while another program has all of them for itself; one recording at a time. The recording must not outlive this
    // object, and may be destroyed by its handlers.
    [[nodiscard]] virtual std::unique_ptr<KeyRecording> recordKeys(
        std::function<void(const RecordedKey& key)> handler, std::function<void()> ended) = 0;
};

} // namespace tarragon
