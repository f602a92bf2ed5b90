#pragma once

#include "mirror/Menu.h"
#include "platform/Accessibility.h"

#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarragon {

class AppAccessibility;
class MenuItemTables;
class ProxyMenuItem;

struct ConversionOptions {
    // Mark alternate items, so that the menu shows them only with their modifiers held.
    bool foldAlternateItems = false;
    // Copy the key equivalents.
    bool keyEquivalents = false;
};

// What one element of an application's menu tree becomes.
struct ItemDescription {
    enum class Type { AXMenuItem, AXMenu, AXOther };
    Type type = Type::AXOther;
    std::shared_ptr<MenuItem> menuItem; // for AXMenuItem alone
};

// Turns an application's menu tree into menus, one level at a time: the items of a level are read, submenus are left
// empty for the delegate to fill when they open.
//
// A converter keeps its own copy of all that it needs and may be used on any thread, by one thread at a time.
class MenuConverter {
public:
    // The delegate is given to every submenu, the reader to every proxy. accessibility and delegate outlive the menus,
    // the tables the converter.
    MenuConverter(Accessibility& accessibility, const MenuItemTables& tables, Element application,
        ConversionOptions options, MenuDelegate* delegate, std::weak_ptr<AppAccessibility> reader);

    // Asked before each attribute that is read. Once it has answered true the converter asks the application nothing
    // more; what it has made by then is incomplete.
    void setShouldStop(std::function<bool()> shouldStop) { _shouldStop = std::move(shouldStop); }

    // Converts the element's children into items of the parent menu. previousDescription is the title of the item that
    // was made from the element, if one was: a menu among the children becomes that item's submenu, or rather that of
    // the first item of the title.
    void processAXMenuAsNSMenu(
        const Element& element, Menu& parent, const std::optional<std::string>& previousDescription);
    // Converts the children of every menu among the element's children.
    void processSubAXMenuAsNSMenu(const Element& element, Menu& parent);
    // Reads the children's roles up to the first menu and builds nothing: wakes an application that fills its menus
    // when they are looked at.
    void processSingleIterationSubAXMenuAsNSMenu(const Element& element);

    // Why the conversions so far have made no item, in words that complete "the menu is empty: ".
    std::string reasonForNoItem() const;

    ItemDescription getMenuItemForElement(const Element& element);
    std::shared_ptr<ProxyMenuItem> createActionNodeWith(const Element& element, const std::shared_ptr<MenuItem>& item);

private:
    void processLevel(const Element& element, Menu& parent, const std::optional<std::string>& previousDescription);
    void attachSubmenu(Menu& parent, const std::string& title) const;
    std::vector<Element> childrenOf(const Element& element);
    bool isMenu(const Element& element);
    bool stopped();
    Value read(std::string_view attribute, const Element& element);
    std::optional<std::string> describe(const Value& value);
    const std::optional<std::string>& applicationName();

    Accessibility& _accessibility;
    const MenuItemTables& _tables;
    Element _application;
    ConversionOptions _options;
    MenuDelegate* _delegate;
    std::weak_ptr<AppAccessibility> _reader;
    // Asked for once, when the first proxy is made.
    std::optional<std::optional<std::string>> _applicationName;
    // The elements whose children are being converted, the outermost first.
    std::vector<Element> _path;
    std::size_t _convertedElements = 0;
    std::size_t _readLevels = 0; // elements whose children could be read
    std::function<bool()> _shouldStop;
    bool _stopped = false;
};

} // namespace tarragon
