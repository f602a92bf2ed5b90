// Start-up and shutdown of the controller.

#include "app/AppController.h"

#include "app/AppDelegate.h"
#include "mirror/MenuPresenter.h"
#include "platform/Log.h"

#include <utility>

namespace tarragon {

AppController::AppController(Platform platform, MenuPresenter& presenter, AppDelegate& appDelegate)
    : _platform(std::move(platform))
    , _presenter(presenter)
    , _appDelegate(appDelegate)
    , _ignoreList(_platform.defaults, _platform.workspace, *this, nullptr) { }

void AppController::init() {
    _appChangeNotifier = std::make_unique<ZDAppChangeNotifier>(_platform.workspace, _platform.notificationCenter);
    if (!_appChangeNotifier->setupAppFrontSwitchedHandler()) {
        log(LogCategory::Front, [] { return "the desktop does not tell of application switches: staying idle"; });
        return;
    }
    setupNotificationsToReceive();
    _appDelegate.accessibilityCheck();
    accessibilityCreation();
}

void AppController::accessibilityCreation() {
    _appUIElementInfo = AppAccessibility::initWithFocusedApp(_platform);
    if (!_appUIElementInfo) {
        log(LogCategory::Accessibility, [] {
            return "no menu reader: no application in front can be reached through the accessibility interface";
        });
        return;
    }
    _appUIElementInfo->setAppController(this);
    setupStatusItem();
    loadDefaults();
    updateAtInit();
    constexpr double SettlingTime = 1.0;
    pauseForMenuBar(SettlingTime);
}

void AppController::updateAtInit() {
    _appUIElementInfo->update();
    setMenuFont();
}

void AppController::clearAll() {
    _presenter.closeMenus();
    _appUIElementInfo = nullptr;
}

} // namespace tarragon
