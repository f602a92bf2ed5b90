#pragma once

#include <string>
#include <vector>

namespace tarragon {

// Starts a program, found through $PATH, that lives on by itself: it is no child of this process, does not end with it
// and leaves nothing behind when it ends. False when it could not be started. May be called from any thread.
bool startDetached(const std::vector<std::string>& command);

// Opens a URL with the program that the user has chosen for it. False when nothing could be started. May be called from
// any thread.
bool openURLDetached(const std::string& url);

} // namespace tarragon
