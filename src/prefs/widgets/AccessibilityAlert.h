#pragma once

#include "prefs/PreferencesWindow.h"

#include <functional>

class QWidget;

namespace tarragon {

// Asks on a window for access to the accessibility interface, and returns at once; the question is shown once the
// window is. The handler gets the answer once the user has given one, unless the window ends before. Main thread only.
void openAccessibilityAlert(QWidget& window, std::function<void(AccessibilityAlertAnswer)> handler);

} // namespace tarragon
