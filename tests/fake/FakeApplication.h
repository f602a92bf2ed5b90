#pragma once

#include "fake/FakeMenu.h"
#include "platform/Workspace.h"

#include <optional>
#include <string>

namespace tarragon {

// What a window of a fake application says of itself. Absent attributes are not listed.
struct FakeWindowOptions {
    std::optional<std::string> title = std::nullopt;
    std::optional<std::string> roleDescription = "window";
    std::optional<Point> positionCG = std::nullopt;
    std::optional<Size> size = std::nullopt;
    std::optional<bool> fullScreen = std::nullopt;
    int children = 0; // that many buttons
};

// One application of the fake desktop. A handle: copies name the same application.
class FakeApplication {
public:
    FakeApplication(FakeAccessibility& accessibility, RunningApplication description);

    // Adds a menu to the application's menu bar, which is made on the first call.
    FakeMenu menu(const std::string& title) const;
    // Adds a window, which becomes the focused one.
    Element window(const FakeWindowOptions& options = {}) const;
    void setFocusedWindow(const Element& window) const;
    void removeFocusedWindow() const;

    const Element& element() const { return _element; }
    // nil when the application has none.
    Element menuBar() const;
    const RunningApplication& description() const { return _description; }
    const std::string& name() const { return _description.name; }
    std::int64_t processIdentifier() const { return _description.processIdentifier; }

private:
    FakeAccessibility* _accessibility;
    RunningApplication _description;
    Element _element;
};

} // namespace tarragon
