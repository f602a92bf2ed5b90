#pragma once

#include <string>

namespace tarragon {

class LoginItemList;

// Brings the list of what is started when the user logs in, nullptr for none, in line with the setting. On adds the
// running program under its bundle path. Off removes what is named "Tarragon", whatever it starts: a copy of the
// program whose file bears another name is added, but not removed.
void setStartAtLogin(LoginItemList* list, const std::string& bundlePath, bool startAtLogin);

} // namespace tarragon
