#include "platform/linux/x11/X11FrontWindow.h"

#include <utility>

namespace tarragon {

X11FrontWindowChange X11FrontWindow::update(std::optional<std::uint32_t> activeWindow, bool fullScreen) {
    if (!activeWindow)
        return {};
    return {.frontSwitched = std::exchange(_window, activeWindow) != activeWindow,
        .systemUIModeChanged = std::exchange(_fullScreen, fullScreen) != fullScreen};
}

void X11FrontWindow::forgetWindow() {
    _window.reset();
}

} // namespace tarragon
