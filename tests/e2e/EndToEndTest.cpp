#include "EndToEndTest.h"

#include <algorithm>
#include <cstdlib>
#include <fstream>
#include <utility>

namespace tarragon::e2e {

void DesktopTest::SetUp() {
    _session = &Session::shared(_windowManager, _compositor, _screens);
    // Somewhere in the middle, where a menu fits to every side.
    input().moveTo(700, 300);
}

void DesktopTest::TearDown() {
    if (!_session)
        return;
    if (HasFailure())
        keepEvidence();
    input().releaseAll();
    bool closed = popUp().close();
    _applications.clear();
    EXPECT_TRUE(agent().isRunning()) << "the program has ended: " << agent().process().standardError();
    if (HasFailure() || !closed)
        Session::discard(_windowManager, _compositor, _screens);
}

PopUp& DesktopTest::popUp() {
    if (!_popUp || _popUpAgent != agent().identifier()) {
        _popUp.emplace(desktop(), agent(), session().observer());
        _popUpAgent = agent().identifier();
    }
    return *_popUp;
}

TestApplication& DesktopTest::launch(ApplicationKind kind, const std::vector<std::string>& arguments) {
    return *_applications.emplace_back(std::make_unique<TestApplication>(desktop(), kind, arguments));
}

void DesktopTest::quit(TestApplication& application) {
    std::erase_if(_applications, [&](const auto& candidate) { return candidate.get() == &application; });
}

void DesktopTest::keepEvidence() {
    if (std::exchange(_evidenceIsKept, true))
        return;
    const char* variable = std::getenv("E2E_FAILURES");
    std::filesystem::path folder = variable ? variable : "e2e_failures";
    const testing::TestInfo* test = testing::UnitTest::GetInstance()->current_test_info();
    std::string name = std::string(test->test_suite_name()) + "." + test->name();
    std::replace(name.begin(), name.end(), '/', '-');
    std::filesystem::create_directories(folder);
    display().screenshot(folder / (name + ".ppm"));
    std::ofstream(folder / (name + ".stderr")) << agent().process().standardError();
}

std::string nameOfWindowManager(const testing::TestParamInfo<WindowManager>& information) {
    return nameOf(information.param);
}

std::string nameOfApplication(const testing::TestParamInfo<std::tuple<WindowManager, ApplicationKind>>& information) {
    return nameOf(std::get<0>(information.param)) + "_" + nameOf(std::get<1>(information.param));
}

} // namespace tarragon::e2e
