#include "fuzz/IgnoreListCheck.h"

#include "fake/FakeDefaults.h"
#include "fake/FakeWorkspace.h"
#include "ignore/IgnoreList.h"
#include "platform/PreferenceKeys.h"

#include <vector>

namespace tarragon {

namespace {

class Window : public WindowInFront {
public:
    std::optional<std::string> focusedWindowTitle() override { return "Untitled 3"; }
    bool isFocusedWindowFullScreen() override { return false; }
};

} // namespace

std::string complaintAboutIgnoreList(std::span<const std::uint8_t> storedList) {
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
        if (!after)
            return "an ignore action left a list that cannot be read";
        if (!identifier.empty() && !list.windowIsIgnored())
            return "an ignored window is not ignored";
        for (const std::string& key : before ? before->allKeys() : std::vector<std::string>()) {
            const bool isOfOthers = key != identifier && key != identifiers.front();
            if (isOfOthers && before->entry(key) != after->entry(key))
                return "an ignore action changed the entry of another application";
        }
    }
    return {};
}

} // namespace tarragon
