#pragma once

#include <string>
#include <vector>

namespace tarragon {

// Starts a program, found through $PATH, that lives on by itself: it is no child of this process, does not end with it
// and leaves nothing behind when it ends. False when it could not be started. May be called from any thread.
bool startDetached(const std::vector<std::string>& command);

} // namespace tarragon
