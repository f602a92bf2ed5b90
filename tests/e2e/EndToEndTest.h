#pragma once

#include "PopUp.h"
#include "Session.h"
#include "TestApplication.h"

#include <gtest/gtest.h>

#include <memory>
#include <optional>
#include <string>
#include <tuple>
#include <vector>

namespace tarragon::e2e {

// A test in a desktop of one window manager. A failed one leaves a picture of the desktop and what the program wrote
// in the folder named by E2E_FAILURES (e2e_failures below the current one when unset).
class DesktopTest : public testing::Test {
protected:
    explicit DesktopTest(
        WindowManager windowManager, Compositor compositor = Compositor::Off, Screens screens = Screens::Virtual)
        : _windowManager(windowManager)
        , _compositor(compositor)
        , _screens(screens) { }
    void SetUp() override;
    void TearDown() override;

    Session& session() { return *_session; }
    Desktop& desktop() { return _session->desktop(); }
    XDisplay& display() { return desktop().display(); }
    SyntheticInput& input() { return desktop().input(); }
    Agent& agent() { return _session->agent(); }
    PopUp& popUp();
    // Starts an application of the test's own.
    TestApplication& launch(ApplicationKind kind, const std::vector<std::string>& arguments = {});
    // Ends it at once.
    void quit(TestApplication& application);
    CommandResult tarragon(const std::vector<std::string>& arguments, const Environment& additions = {}) {
        return Agent::run(desktop(), arguments, additions);
    }

    // What a failed test leaves, as things are now. The first time counts.
    void keepEvidence();

private:
    WindowManager _windowManager;
    Compositor _compositor;
    Screens _screens;
    Session* _session = nullptr;
    std::optional<PopUp> _popUp;
    pid_t _popUpAgent = 0;
    bool _evidenceIsKept = false;
    std::vector<std::unique_ptr<TestApplication>> _applications;
};

// Run once under every window manager.
class WindowManagerTest : public DesktopTest, public testing::WithParamInterface<WindowManager> {
protected:
    WindowManagerTest()
        : DesktopTest(GetParam()) { }
};

// Run once under every window manager for every application.
class ApplicationTest : public DesktopTest,
                        public testing::WithParamInterface<std::tuple<WindowManager, ApplicationKind>> {
protected:
    ApplicationTest()
        : DesktopTest(std::get<0>(GetParam())) { }
    TestApplication& launch() { return DesktopTest::launch(std::get<1>(GetParam())); }
};

std::string nameOfWindowManager(const testing::TestParamInfo<WindowManager>& information);
std::string nameOfApplication(const testing::TestParamInfo<std::tuple<WindowManager, ApplicationKind>>& information);

inline const auto EveryWindowManager = testing::Values(WindowManager::Openbox, WindowManager::Xfwm4);
inline const auto EveryApplication =
    testing::Values(ApplicationKind::Mousepad, ApplicationKind::Geany, ApplicationKind::FeatherPad);

} // namespace tarragon::e2e
