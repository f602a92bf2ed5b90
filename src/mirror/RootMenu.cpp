#include "mirror/RootMenu.h"

#include "mirror/AuxiliaryMenu.h"
#include "mirror/MenuCleanUp.h"
#include "platform/Log.h"

#include <algorithm>
#include <iterator>

namespace tarragon {

namespace {

constexpr const char* AppleTitle = "Apple";
// The private-use character that the system font of some desktops draws as the maker's mark.
constexpr const char* AppleMark = "\uF8FF";

} // namespace

RootMenu::RootMenu(MenuDelegate* delegate)
    : _menu(std::make_shared<Menu>("Fennick")) {
    _menu->setDelegate(delegate);
}

RootMenu::~RootMenu() {
    _menu->removeAllItems();
    _menu->setDelegate(nullptr);
}

std::vector<std::shared_ptr<MenuItem>> RootMenu::rebuild(MenuConverter converter, const Element& menuBar,
    const ReaderOptions& options, const std::function<bool(const MenuItem&)>& shouldBeCached) {
    converter.processAXMenuAsNSMenu(menuBar, *_menu, std::nullopt);
    const std::size_t titles = _menu->numberOfItems();
    if (titles == 0) {
        log(LogCategory::Menus,
            [&] { return "the mirror is empty, given the menu bar: " + converter.reasonForNoItem(); });
    }
    if (!options.showApplicationMenu)
        removeApplicationMenus();
    std::vector<std::shared_ptr<MenuItem>> cacheable;
    if (options.showApplicationMenu) {
        std::ranges::copy_if(
            _menu->items(), std::back_inserter(cacheable), [&](const auto& item) { return shouldBeCached(*item); });
    }
    removeBrokenMenuItems(*_menu);
    showAppleMenuOrRemoveIt(options.showAppleMenu);
    if (titles > 0 && _menu->numberOfItems() == 0)
        log(LogCategory::Menus, [] { return "the mirror is empty: the settings leave no menu that has a title"; });
    return cacheable;
}

void RootMenu::removeApplicationMenus() {
    const auto items = _menu->items();
    for (const auto& item : items) {
        if (item->title() != AppleTitle)
            _menu->removeItem(*item);
    }
}

void RootMenu::showAppleMenuOrRemoveIt(bool show) {
    const auto apple = _menu->itemWithTitle(AppleTitle);
    if (!apple)
        return;
    if (show)
        apple->setTitle(AppleMark);
    else
        _menu->removeItem(*apple);
}

void RootMenu::complete(const ReaderOptions& options, const std::shared_ptr<Menu>& auxiliaryMenu) {
    const auto apple = _menu->itemWithTitle(AppleTitle);
    if (apple && !options.showAppleMenu)
        _menu->removeItem(*apple);
    appendAuxiliaryMenu(*_menu, auxiliaryMenu);
}

} // namespace tarragon
