#pragma once

#include "platform/WindowList.h"

#include <cstdint>
#include <vector>

namespace tarragon {

class ApplicationDirectory;
class WindowSource;
class X11Connection;

// The windows that the window manager manages. What is passed in outlives this object.
class X11WindowList : public WindowList {
public:
    X11WindowList(X11Connection& connection, WindowSource& windows, ApplicationDirectory& applications)
        : _connection(connection)
        , _windows(windows)
        , _applications(applications) { }

    std::vector<ListedWindow> onScreenWindows() override;
    bool raise(std::uint64_t identifier) override;

private:
    std::vector<std::uint32_t> mappedWindows();

    X11Connection& _connection;
    WindowSource& _windows;
    ApplicationDirectory& _applications;
};

} // namespace tarragon
