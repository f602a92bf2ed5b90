// How the controller puts windows on the ignore list and asks whether the one in front is there.

#include "app/AppController.h"
#include "app/IgnoreMenu.h"

namespace tarragon {

bool AppController::windowIsIgnored() {
    return _ignoreList.windowIsIgnored();
}

void AppController::ignoreCurrentWindow(IgnoreCode code) {
    _ignoreList.ignoreCurrentWindow(code);
}

void AppController::ignoreApp() {
    ignoreCurrentWindow(IgnoreCode::App);
}

void AppController::ignoreRole() {
    ignoreCurrentWindow(IgnoreCode::Role);
}

void AppController::ignoreTitle() {
    ignoreCurrentWindow(IgnoreCode::Title);
}

std::shared_ptr<Menu> AppController::contextMenu() {
    const auto application = _platform.workspace.activeApplication();
    return makeIgnoreMenu(*this, application ? application->name : std::string());
}

// Without a reader nothing is known of the window in front.
std::optional<std::string> AppController::focusedWindowTitle() {
    return _appUIElementInfo ? _appUIElementInfo->focusedWindowTitle() : std::nullopt;
}

bool AppController::isFocusedWindowFullScreen() {
    return _appUIElementInfo && _appUIElementInfo->isFocusedWindowFullScreen();
}

} // namespace tarragon
