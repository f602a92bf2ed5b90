#pragma once

#include <nlohmann/json.hpp>

#include <atspi/atspi.h>

#include <memory>
#include <string>
#include <vector>

namespace reader {

struct ObjectDeleter {
    void operator()(gpointer object) const { g_object_unref(object); }
};
using Accessible = std::unique_ptr<AtspiAccessible, ObjectDeleter>;

// The accessible application of a process; nullptr while it is not on the accessibility bus.
Accessible applicationOfProcess(int processIdentifier);

// The menu bar of the application's active window, or of the window with this title when one is given; nullptr when
// there is none.
Accessible menuBarOfApplication(AtspiAccessible& application, const std::string& windowTitle);

// The items below a menu bar, a menu or an item with a submenu, all levels, as an array of objects: "title", "role",
// "separator", "enabled", "checked", "shortcut" (as the application spells it), "x", "y", "width", "height" (screen
// pixels), "focused" and "items".
nlohmann::json itemsBelow(AtspiAccessible& element);
// The same without anything in "items".
nlohmann::json itemsDirectlyBelow(AtspiAccessible& element);

// Follows the titles down from the element and returns the item at their end, or nullptr.
Accessible itemAtPath(AtspiAccessible& element, const std::vector<std::string>& titles);

// Runs the item's own action, as a click would. False when it has none.
bool press(AtspiAccessible& item);

} // namespace reader
