#pragma once

#include "updates/UpdateOutcome.h"

#include <string>

namespace tarragon {

// An outcome as one line of JSON, the way from the tool that asks to the program that tells. Bytes that are no UTF-8
// become U+FFFD.
std::string updateMessage(const UpdateOutcome& outcome);

// The outcome of such a line; the problem Failed for anything else.
UpdateOutcome outcomeOfMessage(const std::string& message);

} // namespace tarragon
