#pragma once

#include "mirror/MenuItem.h"
#include "platform/Accessibility.h"

#include <memory>
#include <optional>
#include <string>

namespace tarragon {

class AppAccessibility;

// Ties one mirrored menu item to the real item of the application: it is the mirrored item's target and presses the
// real one. Set up by one thread; afterwards the element fields may be read from any thread, the rest belongs to the
// main thread.
class ProxyMenuItem : public MenuTarget {
public:
    // The action of every mirrored item that presses a real one.
    static constexpr const char* ClickMenuItem = "clickMenuItem";

    // The services outlive the proxy.
    explicit ProxyMenuItem(Accessibility& accessibility);

    // The real item that a mirrored one stands for; nil for a separator and for an item of our own.
    static Element elementOfItem(const MenuItem& item);

    // Presses the real item and tells the reader that the menu has closed, whether or not the press succeeded.
    void clickMenuItem();
    // Answers the action ClickMenuItem; others do nothing.
    void performAction(const std::string& action, MenuItem& sender) override;

    // The item's title after those of its parents, joined by bars, in front of the last item key computed here. A
    // trailing bar follows an item with a submenu.
    std::string createKeyForFennickItem(const MenuItem& item) const;
    // The application's name and the path of the item, joined by bars; "(null)" stands for either that is missing.
    // Every call builds on the result of the one before, so only the first gives the item's own key: ask once.
    std::string itemKey();

    const Element& itemAXUIElementRef() const { return _itemAXUIElementRef; }
    void setItemAXUIElementRef(Element element) { _itemAXUIElementRef = std::move(element); }
    const Element& appAXUIElementRef() const { return _appAXUIElementRef; }
    void setAppAXUIElementRef(Element element) { _appAXUIElementRef = std::move(element); }
    const std::optional<std::string>& appName() const { return _appName; }
    void setAppName(std::optional<std::string> name) { _appName = std::move(name); }
    // The mirrored item that the proxy was made for, or nullptr when it is gone. Not kept alive: the item owns the
    // proxy as its target, and copies of the item share it.
    std::shared_ptr<MenuItem> menuItem() const { return _menuItem.lock(); }
    void setMenuItem(const std::shared_ptr<MenuItem>& item) { _menuItem = item; }
    // Not kept alive: the reader owns the mirror that owns the proxy.
    std::shared_ptr<AppAccessibility> appAccessbility() const { return _appAccessbility.lock(); }
    void setAppAccessbility(std::weak_ptr<AppAccessibility> reader) { _appAccessbility = std::move(reader); }

private:
    Accessibility& _accessibility;
    Element _itemAXUIElementRef;
    Element _appAXUIElementRef;
    std::optional<std::string> _appName;
    std::string _itemKey;
    std::weak_ptr<MenuItem> _menuItem;
    std::weak_ptr<AppAccessibility> _appAccessbility;
};

} // namespace tarragon
