#pragma once

#include <functional>
#include <string>

namespace tarragon {

// What the user answers to the accessibility alert.
enum class AccessibilityAlertAnswer { OpenSystemPreferences, Quit, None };

// The program's own small windows. Main thread only.
class UserPanels {
public:
    virtual ~UserPanels() = default;

    // Brings the about panel to the front without taking the keyboard focus.
    virtual void showAboutPanel() = 0;
    virtual void showHelp() = 0;
    // Tells which version runs and where newer ones come from.
    virtual void showUpdateInformation() = 0;
    // Tells that settings cannot be shown, with the reason.
    virtual void showFailure(const std::string& message) = 0;
    // Asks for the accessibility permission and returns at once; the handler gets the answer later.
    virtual void showAccessibilityAlert(std::function<void(AccessibilityAlertAnswer)> handler) = 0;
};

} // namespace tarragon
