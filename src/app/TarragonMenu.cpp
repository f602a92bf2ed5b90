#include "app/TarragonMenu.h"

#include "app/AppDelegate.h"
#include "app/OperationTarget.h"

namespace tarragon {

namespace {

using DelegateTarget = OperationTarget<AppDelegate>;

struct Row {
    const char* title;
    const char* action;
    DelegateTarget::Operation operation;
};

constexpr Row rows[] = {
    {"About Tarragon...", "displayAboutPanel", &AppDelegate::displayAboutPanel},
    {"Preferences...", "showPreferencePanel", &AppDelegate::showPreferencePanel},
    {"Check for Updates", "checkForUpdates", &AppDelegate::checkForUpdates},
    {"Help...", "showPreferencePanelWithHelpAsInitial", &AppDelegate::showPreferencePanelWithHelpAsInitial},
    {"Quit", "terminate:", &AppDelegate::terminate},
};

} // namespace

std::shared_ptr<Menu> makeTarragonMenu(AppDelegate& delegate) {
    auto menu = std::make_shared<Menu>("Tarragon");
    for (const Row& row : rows) {
        auto item = std::make_shared<MenuItem>(row.title, row.action, "");
        item->setTarget(std::make_shared<DelegateTarget>(delegate, row.operation));
        menu->addItem(std::move(item));
    }
    return menu;
}

} // namespace tarragon
