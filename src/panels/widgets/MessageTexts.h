#pragma once

#include "updates/UpdateOutcome.h"

#include <string>

namespace tarragon {

// What a message box says: one sentence, and what there is to say beyond it.
struct MessageText {
    std::string text;
    std::string details;
};

// The words of the program's small windows.
MessageText aboutText(const std::string& version);
// version is the one that runs.
MessageText updateText(const UpdateOutcome& outcome, const std::string& version);

} // namespace tarragon
