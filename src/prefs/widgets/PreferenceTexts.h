#pragma once

#include "prefs/PreferencesWindow.h"

#include <optional>
#include <string>

class QString;

namespace tarragon {

class Defaults;
class Keyboard;

// Texts of the preferences window that are put together while the program runs.

// How the menus are opened at the pointer, with the combination and the mouse button that are set.
QString popUpHelpText(Defaults& defaults, Keyboard* keyboard, bool hotKeyIsRefused);
// What became of the hot key, and what to do.
QString hotKeyRefusalText(const HotKeyRefusal& refusal);
QString takeProposalTitle(const HotKeyRefusal& refusal);
// The libraries that the program uses, a line for each, with its licence.
QString librariesText();
QString versionText(const std::string& version);
// That changes count at once, or what is the matter.
QString borderText(BorderNotice notice);

} // namespace tarragon
