#include "mirror/RecentSelections.h"

namespace tarragon {

namespace {

std::vector<std::string> partsOf(const std::string& key) {
    std::vector<std::string> parts;
    std::size_t start = 0;
    for (std::size_t bar = key.find('|'); bar != std::string::npos; bar = key.find('|', start)) {
        parts.push_back(key.substr(start, bar - start));
        start = bar + 1;
    }
    parts.push_back(key.substr(start));
    return parts;
}

// The item that the last part names, or nullptr. A part in the middle that is missing, or has no submenu, is passed
// over: the search goes on in the same menu.
std::shared_ptr<MenuItem> findItem(
    const Menu& root, const std::vector<std::string>& parts, const std::function<void(Menu&)>& fillMenu) {
    std::shared_ptr<MenuItem> item = root.itemWithTitle(parts[1]);
    std::shared_ptr<Menu> submenu = item ? item->submenu() : nullptr;
    for (std::size_t index = 2; index < parts.size(); ++index) {
        if (!submenu)
            return nullptr;
        fillMenu(*submenu);
        item = submenu->itemWithTitle(parts[index]);
        if (item && item->hasSubmenu())
            submenu = item->submenu();
    }
    return item;
}

} // namespace

void addRecentSelections(Menu& target, const Menu& root, const std::vector<std::string>& keys,
    const std::function<std::optional<std::string>()>& applicationName, const std::function<void(Menu&)>& fillMenu) {
    constexpr const char* Title = "Recent Selections";
    auto title = std::make_shared<MenuItem>(Title, "", "");
    // Filled and outlined, to stand out from the selections.
    title->setAttributedTitle(AttributedTitle{.text = Title, .font = MenuFont(), .strokeWidth = -1});
    target.addItem(MenuItem::separatorItem());
    target.addItem(std::move(title));
    for (const std::string& key : keys) {
        const std::vector<std::string> parts = partsOf(key);
        if (parts.size() < 2 || parts.front() != applicationName())
            continue;
        if (const auto item = findItem(root, parts, fillMenu))
            target.addItem(item->copy());
    }
}

} // namespace tarragon
