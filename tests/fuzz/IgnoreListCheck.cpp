#include "fuzz/IgnoreListCheck.h"

#include "fake/FakeDefaults.h"
#include "fake/FakeWorkspace.h"
#include "ignore/IgnoreList.h"
#include "platform/PreferenceKeys.h"

#include <cstdio>
#include <cstdlib>

namespace tarragon {

namespace {

class Window : public FocusedWindowQueries {
public:
    std::optional<std::string> focusedWindowTitle() override { return "Untitled 3"; }
    bool isFocusedWindowFullScreen() override { return false; }
};

void require(bool condition, const char* what) {
    if (condition)
        return;
    std::fprintf(stderr, "%s\n", what);
    std::abort();
}

} // namespace

void checkIgnoreListSurvives(std::span<const std::uint8_t> storedList) {
    FakeDefaults defaults;
    defaults.setValue(preference::IgnoreWindowList, Data(storedList.begin(), storedList.end()));
    FakeWorkspace workspace;
    Window window;
    IgnoreList list(defaults, workspace, window, nullptr);

    const std::optional<IgnoreDictionary> before = IgnoreDictionary::load(defaults);
    std::vector<std::string> identifiers{"org.example.Editor"};
    if (before && before->count() > 0)
        identifiers.push_back(before->allKeys().front());
    for (const std::string& identifier : identifiers) {
        workspace.setActiveApplication(RunningApplication{"Editor", 7, identifier, ""});
        list.windowIsIgnored();
        list.ignoreApp();
        const std::optional<IgnoreDictionary> after = IgnoreDictionary::load(defaults);
        require(after.has_value(), "an ignore action left a list that cannot be read");
        require(identifier.empty() || list.windowIsIgnored(), "an ignored window is not ignored");
        for (const std::string& key : before ? before->allKeys() : std::vector<std::string>()) {
            require(key == identifier || before->entry(key) == after->entry(key) || key == identifiers.front(),
                "an ignore action changed the entry of another application");
        }
    }
}

} // namespace tarragon
