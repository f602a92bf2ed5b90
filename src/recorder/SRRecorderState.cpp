#include "recorder/SRRecorderState.h"

#include "recorder/SRModifierFlags.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tarragon {

namespace {

constexpr std::uint16_t Backspace = 51;
constexpr std::uint16_t Escape = 53;

constexpr std::uint32_t Modifiers = modifier::Shift | modifier::Control | modifier::Option | modifier::Command;

bool isFunctionKey(std::int16_t keyCode) {
    constexpr std::array<std::int16_t, 19> FunctionKeys{
        122, 120, 99, 118, 96, 97, 98, 100, 101, 109, 103, 111, 105, 107, 113, 106, 64, 79, 80};
    return std::find(FunctionKeys.begin(), FunctionKeys.end(), keyCode) != FunctionKeys.end();
}

// Somebody who types would miss the key: Shift belongs to typing, and function keys type nothing.
bool isNeededForTyping(const KeyCombo& combination) {
    constexpr std::uint32_t BeyondTyping = modifier::Control | modifier::Option | modifier::Command;
    return !combination.isEmpty() && (combination.flags & BeyondTyping) == 0 && !isFunctionKey(combination.code);
}

} // namespace

SRRecorderState::SRRecorderState(IsTaken isTaken)
    : _isTaken(std::move(isTaken)) { }

void SRRecorderState::setKeyCombo(const KeyCombo& combination) {
    _keyCombo = combination;
    _notice = SRRecorderNotice::None;
}

SRRecorderNotice SRRecorderState::notice() const {
    const bool isQuiet = !_isRecording && _notice == SRRecorderNotice::None;
    return isQuiet && isNeededForTyping(_keyCombo) ? SRRecorderNotice::TypingKey : _notice;
}

void SRRecorderState::start() {
    end(SRRecorderNotice::None);
    _isRecording = true;
}

void SRRecorderState::failToStart() {
    end(SRRecorderNotice::KeysUnavailable);
}

SRRecorderResult SRRecorderState::take(const RecordedKey& key) {
    if (_isRecording) {
        _heldFlags = key.flags & Modifiers;
        return key.isPressed && !key.isModifier ? takePress(key) : SRRecorderResult::None;
    }
    // A key that goes down meanwhile does not wait for the other one.
    if (key.isPressed || key.keyCode == _closingKey)
        _closingKey.reset();
    return SRRecorderResult::None;
}

SRRecorderResult SRRecorderState::takePress(const RecordedKey& key) {
    if (!key.keyCode) {
        _notice = SRRecorderNotice::UnusableKey;
        return SRRecorderResult::None;
    }
    SRRecorderResult result = SRRecorderResult::Recorded;
    const bool isByItself = _heldFlags == 0;
    if (isByItself && *key.keyCode == Escape) {
        result = cancel();
    } else if (isByItself && *key.keyCode == Backspace) {
        result = clear();
    } else {
        const KeyCombo pressed{static_cast<std::int16_t>(*key.keyCode), key.flags & DefaultAllowedFlags};
        SRValidationError error;
        if (_isTaken(pressed, error)) {
            result = SRRecorderResult::Refused;
            _refusal = error;
            end(SRRecorderNotice::Refused);
        } else {
            _keyCombo = pressed;
            end(SRRecorderNotice::None);
        }
    }
    _closingKey = key.keyCode;
    return result;
}

SRRecorderResult SRRecorderState::cancel() {
    _closingKey.reset();
    if (!_isRecording)
        return SRRecorderResult::None;
    end(SRRecorderNotice::None);
    return SRRecorderResult::Cancelled;
}

void SRRecorderState::keysWereTakenAway() {
    const bool wasRecording = _isRecording;
    _closingKey.reset();
    if (wasRecording)
        end(SRRecorderNotice::KeysTakenAway);
}

SRRecorderResult SRRecorderState::clear() {
    end(SRRecorderNotice::None);
    const bool wasEmpty = _keyCombo.isEmpty();
    _keyCombo = {};
    return wasEmpty ? SRRecorderResult::None : SRRecorderResult::Cleared;
}

void SRRecorderState::end(SRRecorderNotice notice) {
    _isRecording = false;
    _closingKey.reset();
    _heldFlags = 0;
    _notice = notice;
}

} // namespace tarragon
