#include "app/IgnoreMenu.h"

#include "app/AppController.h"
#include "app/OperationTarget.h"

namespace tarragon {

std::shared_ptr<Menu> makeIgnoreMenu(AppController& controller, const std::string& applicationName) {
    using Target = OperationTarget<AppController>;
    auto menu = std::make_shared<Menu>("Ignore");
    const auto add = [&](const std::string& title, const char* action, Target::Operation operation) {
        auto item = std::make_shared<MenuItem>(title, action, "");
        item->setTarget(std::make_shared<Target>(controller, operation));
        menu->addItem(std::move(item));
    };
    const std::string allWindows = "Ignore all " + applicationName + " windows";
    add(allWindows, "ignoreApp", &AppController::ignoreApp);
    add(allWindows + " with current title", "ignoreTitle", &AppController::ignoreTitle);
    return menu;
}

} // namespace tarragon
