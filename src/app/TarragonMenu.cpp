#include "app/TarragonMenu.h"

#include "app/AppDelegate.h"
#include "app/OperationTarget.h"
#include "platform/Texts.h"

namespace tarragon {

namespace {

using DelegateTarget = OperationTarget<AppDelegate>;

struct Row {
    const char* title;
    const char* action;
    DelegateTarget::Operation operation;
};

constexpr Row rows[] = {
    {sourceText("TarragonMenu", "About Tarragon..."), "displayAboutPanel", &AppDelegate::displayAboutPanel},
    {sourceText("TarragonMenu", "Preferences..."), "showPreferencePanel", &AppDelegate::showPreferencePanel},
    {sourceText("TarragonMenu", "Check for Updates"), "checkForUpdates", &AppDelegate::checkForUpdates},
    {sourceText("TarragonMenu", "Help..."), "showPreferencePanelWithHelpAsInitial",
        &AppDelegate::showPreferencePanelWithHelpAsInitial},
    {sourceText("TarragonMenu", "Quit"), "terminate:", &AppDelegate::terminate},
};

} // namespace

std::shared_ptr<Menu> makeTarragonMenu(AppDelegate& delegate) {
    // The menu is known by its title, which is therefore the same in all words.
    auto menu = std::make_shared<Menu>("Tarragon");
    for (const Row& row : rows) {
        auto item = std::make_shared<MenuItem>(translated("TarragonMenu", row.title), row.action, "");
        item->setTarget(std::make_shared<DelegateTarget>(delegate, row.operation));
        menu->addItem(std::move(item));
    }
    return menu;
}

} // namespace tarragon
