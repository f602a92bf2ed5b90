#include "app/IgnoreMenu.h"

#include "app/AppController.h"
#include "app/OperationTarget.h"
#include "platform/Texts.h"

namespace tarragon {

std::shared_ptr<Menu> makeIgnoreMenu(AppController& controller, const std::string& applicationName) {
    using Target = OperationTarget<AppController>;
    auto menu = std::make_shared<Menu>("Ignore");
    const auto add = [&](const std::string& title, const char* action, Target::Operation operation) {
        auto item = std::make_shared<MenuItem>(title, action, "");
        item->setTarget(std::make_shared<Target>(controller, operation));
        menu->addItem(std::move(item));
    };
    // With nobody in front there is nothing to ignore.
    if (applicationName.empty())
        return menu;
    add(withArguments(translated("IgnoreMenu", "Ignore all %@ windows"), {applicationName}), "ignoreApp",
        &AppController::ignoreApp);
    add(withArguments(translated("IgnoreMenu", "Ignore all %@ windows with current title"), {applicationName}),
        "ignoreTitle", &AppController::ignoreTitle);
    return menu;
}

} // namespace tarragon
