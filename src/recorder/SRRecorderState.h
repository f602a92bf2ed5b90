#pragma once

#include "platform/KeyRecorder.h"
#include "recorder/KeyCombo.h"
#include "recorder/SRValidator.h"

#include <cstdint>
#include <functional>
#include <optional>

namespace tarragon {

// What the user is to be told beside the combination.
enum class SRRecorderNotice {
    None,
    KeysUnavailable, // recording could not begin: somebody else has the keyboard
    KeysTakenAway, // the desktop has ended the recording
    UnusableKey, // the last key cannot be part of a combination; recording goes on
    Refused, // the combination that was pressed is taken
    TypingKey, // the combination takes a key away from typing
};

// What an input has led to.
enum class SRRecorderResult { None, Recorded, Cleared, Cancelled, Refused };

// The combination of a recorder and how it is recorded. Knows no toolkit: it is fed with what the user does, and
// whoever shows it looks at it afterwards.
//
// The next key that is no modifier ends a recording: Escape by itself leaves everything as it was, Backspace by itself
// empties the combination, and anything else becomes the combination unless it is taken.
class SRRecorderState {
public:
    // Answers whether a combination cannot be used, and then why. Asked once for each combination that is pressed.
    using IsTaken = std::function<bool(const KeyCombo& combination, SRValidationError& error)>;

    explicit SRRecorderState(IsTaken isTaken);

    const KeyCombo& keyCombo() const { return _keyCombo; }
    // A recording goes on; a notice about the former combination is taken back.
    void setKeyCombo(const KeyCombo& combination);

    bool isRecording() const { return _isRecording; }
    // True while keys are to go here: while recording, and until the key that has ended it is let go. Otherwise its
    // repetitions would be typed into whatever has the focus, or open the menus at once.
    bool needsKeys() const { return _isRecording || _closingKey.has_value(); }
    // The modifiers that are held while recording, as Cocoa flags.
    std::uint32_t heldFlags() const { return _heldFlags; }
    SRRecorderNotice notice() const;
    // Why the last combination was not taken over; meaningful with the notice Refused.
    const SRValidationError& refusal() const { return _refusal; }

    // Keys go here from now on.
    void start();
    // Recording was asked for and the keys cannot be had.
    void failToStart();
    // A key that went down or up.
    SRRecorderResult take(const RecordedKey& key);
    // Ends a recording without a result. Does nothing otherwise.
    SRRecorderResult cancel();
    void keysWereTakenAway();
    // Ends a recording as well. None when there was nothing to clear.
    SRRecorderResult clear();

private:
    SRRecorderResult takePress(const RecordedKey& key);
    void end(SRRecorderNotice notice);

    IsTaken _isTaken;
    KeyCombo _keyCombo;
    bool _isRecording = false;
    std::optional<std::uint16_t> _closingKey; // has ended the recording and is still held
    std::uint32_t _heldFlags = 0;
    SRRecorderNotice _notice = SRRecorderNotice::None;
    SRValidationError _refusal;
};

} // namespace tarragon
