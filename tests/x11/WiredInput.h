#pragma once

#include "platform/linux/x11/QtNativeEvents.h"
#include "platform/linux/x11/X11MenuInput.h"
#include "platform/qt/QtRunLoop.h"

#include <functional>

namespace tarragon {

// The menu input as the program has it: on the toolkit's connection, looking at its events first.
struct WiredInput {
    QtRunLoop runLoop;
    X11MenuInput menuInput{static_cast<xcb_connection_t*>(qtX11Connection())};
    QtNativeEvents nativeEvents{runLoop, [](const void*) { return false; },
        [this](void* event) { return menuInput.redirect(static_cast<xcb_generic_event_t*>(event)); }};
};

// Handles the toolkit's events until the condition holds. False when that takes too long.
bool waitUntil(const std::function<bool()>& condition, int milliseconds = 10000);

} // namespace tarragon
