// How the controller puts menus on the screen.

#include "app/AppController.h"
#include "app/TarragonMenu.h"
#include "mirror/MenuPresenter.h"
#include "panels/TarragonPanel.h"
#include "platform/Log.h"

#include <string>

namespace tarragon {

void AppController::popUpMenuAtMouseLocation() {
    if (!_appUIElementInfo)
        accessibilityCreation();
    if (!_appUIElementInfo) {
        log(LogCategory::Menus, [] { return "pop-up: there is no menu reader"; });
        return;
    }
    const auto appName = _appUIElementInfo->focusedAppName();
    // These publish their menus late, often after the switch that was to bring them.
    if (appName == "Firefox" || appName == "Camino")
        _appUIElementInfo->update();
    // Nobody is in front, or nobody was when the mirror was made: word of that comes a moment later, and not at all
    // when the same application is back by then. Windows of our own leave the mirror as it is.
    else if (!appName || (!_appUIElementInfo->currentAppName() && appName != "Tarragon"))
        _appUIElementInfo->update();
    // An application without menus leaves the own menu alone, so that settings and quitting stay within reach.
    _presenter.popUpMenu(_appUIElementInfo->menu(), _platform.displays.mouseLocationNS());
    log(LogCategory::Menus, [&] {
        const std::string name = appName ? "'" + *appName + "'" : "no application in front";
        return menuPopulated()
            ? "pop-up: " + std::to_string(_appUIElementInfo->menu()->numberOfItems()) + " items for " + name
            : "pop-up: nothing to show for " + name + ", and the own menu is switched off";
    });
}

Point AppController::panelMenuLocationNS() const {
    constexpr double Distance = 6;
    const Point origin = _tarragonPanel ? _tarragonPanel->frame().origin : Point();
    return {origin.x, origin.y - Distance};
}

void AppController::popUpMenu() {
    if (!_appUIElementInfo)
        return;
    boldenAppTitleMenu();
    _presenter.popUpMenu(_appUIElementInfo->menu(), panelMenuLocationNS());
}

void AppController::popUpIgnoreMenu() {
    _presenter.popUpMenu(contextMenu(), panelMenuLocationNS());
}

std::string AppController::appURL() const {
    return _platform.bundlePath.empty() ? std::string() : "file://" + _platform.bundlePath;
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
