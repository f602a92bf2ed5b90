#pragma once

#include "recorder/KeyCombo.h"

#include <string>
#include <vector>

namespace tarragon {

class SRKeyCodeTransformer;
class SRRecorderState;
struct SRValidationError;

// What a recorder says, translated. Main thread only.

struct SRRecorderText {
    std::string words;
    bool isPrompt = false; // tells what to do, rather than a combination
    bool operator==(const SRRecorderText&) const = default;
};

// The combination, the modifiers that are held so far, or what to do.
SRRecorderText recorderText(const SRRecorderState& state, const SRKeyCodeTransformer& transformer);
// A sentence or two about the notice; empty for none.
std::string recorderNoticeText(const SRRecorderState& state);
// Texts of which one is the longest that a recorder can show.
std::vector<std::string> longRecorderTexts();

// The error with words where the validator has refused a combination without any: it does so for keys that have no name
// and where the desktop does not tell its own combinations.
SRValidationError explainedRefusal(
    const SRValidationError& error, const KeyCombo& combination, const SRKeyCodeTransformer& transformer);

} // namespace tarragon
