#include "recorder/SRRecorderTexts.h"

#include "platform/ModifierFlags.h"
#include "platform/Texts.h"
#include "recorder/KeyComboWords.h"
#include "recorder/SRKeyCodeTransformer.h"
#include "recorder/SRRecorderState.h"

namespace tarragon {

namespace {

std::string idlePrompt() {
    return translated("SRRecorder", "Record a combination");
}

std::string recordingPrompt() {
    return translated("SRRecorder", "Press the keys");
}

} // namespace

SRRecorderText recorderText(const SRRecorderState& state, const SRKeyCodeTransformer& transformer) {
    if (!state.isRecording())
        return state.keyCombo().isEmpty() ? SRRecorderText{idlePrompt(), true}
                                          : SRRecorderText{keyComboWords(state.keyCombo(), transformer)};
    const std::string held = modifierWords(state.heldFlags());
    return held.empty() ? SRRecorderText{recordingPrompt(), true} : SRRecorderText{held + "…"};
}

std::string recorderNoticeText(const SRRecorderState& state) {
    switch (state.notice()) {
    case SRRecorderNotice::None:
        break;
    case SRRecorderNotice::KeysUnavailable:
        return translated("SRRecorder", "Another program is using the keyboard. Try again in a moment.");
    case SRRecorderNotice::KeysTakenAway:
        return translated("SRRecorder", "The desktop has taken the keyboard back. Nothing was recorded; try again.");
    case SRRecorderNotice::UnusableKey:
        return translated("SRRecorder", "This key cannot be used. Press another one, or Escape to leave it as it was.");
    case SRRecorderNotice::Refused:
        return state.refusal().recoverySuggestion;
    case SRRecorderNotice::TypingKey:
        return translated("SRRecorder",
            "This key opens the menus even where you want to type with it. Hold another key with it, such as Alt.");
    }
    return {};
}

std::vector<std::string> longRecorderTexts() {
    const std::string modifiers =
        modifierWords(modifier::Control | modifier::Option | modifier::Shift | modifier::Command);
    std::vector<std::string> texts{idlePrompt(), recordingPrompt()};
    for (const std::string& key : longKeyWords())
        texts.push_back(modifiers + key);
    return texts;
}

SRValidationError explainedRefusal(
    const SRValidationError& error, const KeyCombo& combination, const SRKeyCodeTransformer& transformer) {
    if (!error.recoverySuggestion.empty())
        return error;
    const bool hasName = !transformer.transformedValue(combination.code).value_or("").empty();
    return {translated("SRRecorder", "The key combination can't be used!"),
        hasName ? translated("SRRecorder",
            "The desktop does not tell which key combinations are its own, so that this one may be one of them.")
                : translated("SRRecorder", "This key has no name in the keyboard layout that is switched on."),
        {translated("SRRecorder", "OK")}};
}

} // namespace tarragon
