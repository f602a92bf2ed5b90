// The item in the desktop's status bar or tray.

#include "app/AppController.h"
#include "platform/Log.h"
#include "platform/PreferenceKeys.h"

namespace tarragon {

void AppController::setupStatusItem() {
    const bool isWanted = readBool(preference::ShowStatusBarIcon);
    if (_statusItem) {
        if (!isWanted)
            removeStatusItem();
        return;
    }
    if (!isWanted)
        return;
    if (_platform.statusItems == nullptr) {
        log(LogCategory::Panel, [] { return "no status item: the desktop has no place for it"; });
        return;
    }
    _statusItem = _platform.statusItems->addItem({"statusItemIcon", "statusItemIconInverse", statusItemMenu()});
}

void AppController::removeStatusItem() {
    _statusItem = nullptr;
}

std::vector<StatusMenuItem> AppController::statusItemMenu() {
    const std::shared_ptr<Menu> menu = addTarragonMenuToMenu();
    std::vector<StatusMenuItem> items;
    for (const std::shared_ptr<MenuItem>& item : menu->items())
        items.push_back({item->title(), [item] { item->target()->performAction(item->action(), *item); }});
    return items;
}

} // namespace tarragon
