#include "fake/FakePlatform.h"

namespace tarragon {

FakePlatform::FakePlatform() = default;

Platform FakePlatform::platform() {
    return {.accessibility = accessibility,
        .workspace = workspace,
        .displays = displays,
        .hotKeys = hotKeys,
        .defaults = defaults,
        .runLoop = runLoop,
        .notificationCenter = notificationCenter,
        .menuInput = menuInput,
        .keyboard = &keyboard,
        .inputEvents = &inputEvents,
        .process = &process,
        .windowList = &windowList,
        .panelSurfaces = &panelSurfaces,
        .statusItems = &statusItems,
        .installedApplications = &installedApplications,
        .keyRecorder = &keyRecorder,
        .userNotifications = &userNotifications,
        .windowPicker = &windowPicker};
}

FakeApplication FakePlatform::addApplication(const std::string& name) {
    const RunningApplication description{
        name, _nextProcessIdentifier++, "org.example." + name, "/usr/share/applications/" + name + ".desktop"};
    workspace.addRunningApplication(description);
    return {accessibility, description};
}

void FakePlatform::activate(const FakeApplication& application) {
    accessibility.setFocusedApplication(application.element());
    workspace.setActiveApplication(application.description());
}

void FakePlatform::switchTo(const FakeApplication& application) {
    accessibility.setFocusedApplication(application.element());
    workspace.switchTo(application.description());
}

void FakePlatform::deactivate() {
    accessibility.setFocusedApplication({});
    workspace.setActiveApplication(std::nullopt);
}

void FakePlatform::quit(const FakeApplication& application) {
    accessibility.destroy(application.element());
    workspace.removeRunningApplication(application.processIdentifier());
}

} // namespace tarragon
