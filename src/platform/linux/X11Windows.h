#pragma once

#include "platform/Geometry.h"
#include "platform/linux/X11WindowKind.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarragon {

class X11Connection;
struct X11WindowAtoms;

// What the window manager and the application say of one top-level window, at the moment of asking.
struct X11WindowDescription {
    std::uint32_t identifier = 0;
    std::int64_t processIdentifier = 0; // 0 when the window does not tell
    std::string title;
    std::string instanceName; // first string of WM_CLASS
    std::string className; // second string of WM_CLASS
    std::string gtkApplicationIdentifier; // empty for windows of other toolkits
    X11WindowKind kind = X11WindowKind::Normal;
    Rect frame; // with decorations, without shadows; pixels of the root window, y down
    Rect frameCG; // the same in screen space
    bool fullScreen = false;
    bool hidden = false; // minimised
};

// Top-level windows of other applications, through the window manager's hints. May be called from any thread. A window
// that is gone gives nothing.
class X11Windows {
public:
    explicit X11Windows(X11Connection& connection);
    ~X11Windows();
    X11Windows(const X11Windows&) = delete;
    X11Windows& operator=(const X11Windows&) = delete;

    std::optional<std::uint32_t> activeWindow();
    std::optional<X11WindowDescription> describe(std::uint32_t window);
    // The same for many windows in the time of one; those that are gone are left out.
    std::vector<X11WindowDescription> describe(const std::vector<std::uint32_t>& windows);
    // The managed windows, bottom to top.
    std::vector<std::uint32_t> managedWindows();
    // The topmost managed window whose frame contains the point; nothing over the desktop. Minimised windows and those
    // of other workspaces are not there.
    std::optional<std::uint32_t> windowAtPosition(const Point& pointCG);

    // All three ask the window manager. False when the request could not be sent.
    bool setPosition(std::uint32_t window, const Point& topLeftCG);
    bool setSize(std::uint32_t window, const Size& frameSize);
    bool raise(std::uint32_t window);

private:
    X11Connection& _connection;
    std::unique_ptr<const X11WindowAtoms> _atoms;
};

} // namespace tarragon
