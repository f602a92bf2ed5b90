#pragma once

#include "fake/FakeAccessibility.h"

#include <optional>
#include <string>

namespace tarragon {

// What a menu item of a fake application says of itself. Absent attributes are not listed.
struct FakeMenuItemOptions {
    std::optional<bool> enabled = true;
    std::optional<std::string> mark = std::nullopt;
    std::optional<std::string> commandCharacter = std::nullopt;
    std::optional<std::int64_t> commandModifiers = std::nullopt;
    std::optional<std::int64_t> commandGlyph = std::nullopt;
    std::optional<Element> primary = std::nullopt;
    std::optional<std::string> shortcutText = std::nullopt;
    std::optional<Size> size = std::nullopt;
};

// One menu of a fake application, with the item that opens it. A handle: copies name the same menu.
class FakeMenu {
public:
    FakeMenu(FakeAccessibility& accessibility, std::int64_t processIdentifier, Element item, Element menu);

    // Adds an item and answers the same menu, so that calls can be chained.
    FakeMenu item(const std::string& title, const FakeMenuItemOptions& options = {}) const;
    FakeMenu separator() const;
    // Adds an item with a submenu and answers the submenu.
    FakeMenu submenu(const std::string& title, const FakeMenuItemOptions& options = {}) const;
    void remove(const std::string& title) const;
    void clear() const;

    // The item that opens the menu.
    const Element& item() const { return _item; }
    const Element& element() const { return _menu; }
    // The first item of that title; nil when there is none.
    Element itemElement(const std::string& title) const;

private:
    Element addItemElement(const std::string& title, const FakeMenuItemOptions& options) const;

    FakeAccessibility* _accessibility;
    std::int64_t _processIdentifier;
    Element _item;
    Element _menu;
};

} // namespace tarragon
