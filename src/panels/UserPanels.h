#pragma once

#include "updates/UpdateOutcome.h"

#include <functional>
#include <string>

namespace tarragon {

// The program's own small windows. Main thread only.
class UserPanels {
public:
    virtual ~UserPanels() = default;

    // Brings the about panel to the front without taking the keyboard focus.
    virtual void showAboutPanel() = 0;
    // Tells what came of asking for a newer version, in the place of what it told before. The handler is called when
    // the user wants to see the page that the outcome names.
    virtual void showUpdateOutcome(const UpdateOutcome& outcome, std::function<void()> openLink) = 0;
    // Tells that something cannot be shown, with the reason.
    virtual void showFailure(const std::string& message) = 0;
};

} // namespace tarragon
