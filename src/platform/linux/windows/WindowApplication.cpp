#include "platform/linux/windows/WindowApplication.h"

#include "platform/linux/windows/ApplicationDirectory.h"
#include "platform/linux/windows/WindowDescription.h"

namespace tarragon {

RunningApplication applicationOfWindow(const WindowDescription& window, ApplicationDirectory& applications) {
    RunningApplication application;
    application.processIdentifier = window.processIdentifier;
    application.name = applications.applicationName(window);
    if (const auto entry = applications.entryForWindow(window)) {
        application.bundleIdentifier = entry->identifier;
        application.bundlePath = entry->path;
    } else {
        application.bundleIdentifier = window.className;
    }
    return application;
}

} // namespace tarragon
