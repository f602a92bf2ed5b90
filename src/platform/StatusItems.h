#pragma once

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace tarragon {

struct StatusMenuItem {
    std::string title;
    std::function<void()> action;
};

struct StatusItemDescription {
    // Images of the program's own resources, by name and without an extension.
    std::string imageName;
    std::string alternateImageName; // for dark trays and the highlighted item; empty when there is none
    std::vector<StatusMenuItem> menu; // opened by the item
};

// An item of the desktop's status bar or tray, as wide as its image. Destroying it removes it. While the desktop has no
// tray nothing is seen of it; it appears in a tray that comes later. Main thread only.
class StatusItem {
public:
    virtual ~StatusItem() = default;
};

// Puts items of ours into the status bar or tray. Main thread only; actions are called from the run loop.
class StatusItems {
public:
    virtual ~StatusItems() = default;

    [[nodiscard]] virtual std::unique_ptr<StatusItem> addItem(StatusItemDescription description) = 0;
};

} // namespace tarragon
