// How the controller puts menus on the screen.

#include "app/AppController.h"
#include "app/TarragonMenu.h"
#include "mirror/MenuPresenter.h"
#include "mirror/ProxyMenuItem.h"

#include <algorithm>

namespace tarragon {

void AppController::popUpMenuAtMouseLocation() {
    if (!_appUIElementInfo)
        accessibilityCreation();
    if (!_appUIElementInfo)
        return;
    // These publish their menus late, often after the switch that was to bring them.
    const auto appName = _appUIElementInfo->focusedAppName();
    if (appName == "Firefox" || appName == "Camino")
        _appUIElementInfo->update();
    if (mirrorIsEmpty())
        return;
    _presenter.popUpMenu(_appUIElementInfo->menu(), _platform.displays.mouseLocationNS());
}

bool AppController::mirrorIsEmpty() const {
    const auto& items = _appUIElementInfo->menu()->items();
    return std::none_of(items.begin(), items.end(), [](const std::shared_ptr<MenuItem>& item) {
        return std::dynamic_pointer_cast<ProxyMenuItem>(item->target()) != nullptr;
    });
}

std::shared_ptr<Menu> AppController::addTarragonMenuToMenu() {
    return makeTarragonMenu(_appDelegate);
}

void AppController::boldenAppTitleMenu() {
    auto appName = _appUIElementInfo->focusedAppName();
    if (!appName)
        return;
    // This one's menu goes by a shorter name than the application.
    if (appName == "Google Chrome")
        appName = "Chrome";
    const auto item = _appUIElementInfo->menu()->itemWithTitle(*appName);
    if (!item)
        return;
    const MenuFont bold{static_cast<double>(_preferences._fontSizeSmall), true};
    item->setAttributedTitle(AttributedTitle{item->title(), bold, 0});
}

void AppController::setMenuFont() {
    _appUIElementInfo->menu()->setFont(MenuFont{static_cast<double>(_preferences._fontSizeSmall), false});
}

} // namespace tarragon
