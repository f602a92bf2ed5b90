#pragma once

#include "fake/FakeAccessibility.h"
#include "fake/FakeApplication.h"
#include "fake/FakeDefaults.h"
#include "fake/FakeDisplays.h"
#include "fake/FakeHotKeys.h"
#include "fake/FakeInputEvents.h"
#include "fake/FakeInstalledApplications.h"
#include "fake/FakeKeyRecorder.h"
#include "fake/FakeKeyboard.h"
#include "fake/FakeMenuInput.h"
#include "fake/FakeMenuPresenter.h"
#include "fake/FakePanelSurfaces.h"
#include "fake/FakeProcess.h"
#include "fake/FakeRunLoop.h"
#include "fake/FakeStatusItems.h"
#include "fake/FakeUserNotifications.h"
#include "fake/FakeWindowList.h"
#include "fake/FakeWindowPicker.h"
#include "fake/FakeWorkspace.h"
#include "platform/Platform.h"

#include <string>

namespace tarragon {

// A whole desktop in memory: one more back end behind the seam.
//
//     FakePlatform fake;
//     FakeApplication mail = fake.addApplication("Mail");
//     mail.menu("Edit").item("Copy", {.commandCharacter = "C"}).separator().item("Paste");
//     fake.activate(mail);
class FakePlatform {
public:
    FakePlatform();
    FakePlatform(const FakePlatform&) = delete;
    FakePlatform& operator=(const FakePlatform&) = delete;

    Platform platform();

    // Process identifiers count up from 100; bundle identifiers are "org.example." and the name.
    FakeApplication addApplication(const std::string& name);
    // Brings the application to the front without an event, or with one.
    void activate(const FakeApplication& application);
    void switchTo(const FakeApplication& application);
    // No application is in front.
    void deactivate();
    // The application ends: its elements are gone.
    void quit(const FakeApplication& application);

    FakeAccessibility accessibility;
    FakeWorkspace workspace;
    FakeDisplays displays;
    FakeHotKeys hotKeys;
    FakeKeyboard keyboard;
    FakeInputEvents inputEvents;
    FakeProcess process;
    FakeWindowList windowList;
    FakePanelSurfaces panelSurfaces;
    FakeStatusItems statusItems;
    FakeInstalledApplications installedApplications;
    FakeKeyRecorder keyRecorder;
    FakeUserNotifications userNotifications;
    FakeWindowPicker windowPicker;
    FakeDefaults defaults;
    FakeRunLoop runLoop;
    NotificationCenter notificationCenter;
    FakeMenuInput menuInput;
    FakeMenuPresenter menuPresenter;

private:
    std::int64_t _nextProcessIdentifier = 100;
};

} // namespace tarragon
