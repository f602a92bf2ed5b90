#include "ignore/IgnoreList.h"
#include "platform/PreferenceKeys.h"

#include <vector>

namespace tarragon {

IgnoreList::IgnoreList(Defaults& defaults, Workspace& workspace, WindowInFront& window, IgnoredPanel* panel)
    : _defaults(defaults)
    , _workspace(workspace)
    , _window(window)
    , _panel(panel) { }

bool IgnoreList::windowIsIgnored() {
    if (_window.isFocusedWindowFullScreen())
        return true;
    const std::optional<RunningApplication> application = _workspace.activeApplication();
    const std::optional<std::string> title = _window.focusedWindowTitle();
    const std::optional<DefaultsValue> setting = _defaults.value(preference::IgnoreWindowList);
    const Data* archive = setting ? std::get_if<Data>(&*setting) : nullptr;
    if (!archive || !application || application->bundleIdentifier.empty())
        return false;
    const std::optional<TarragonBlacklist> entry =
        IgnoreDictionary::unarchiveEntry(*archive, application->bundleIdentifier);
    if (!entry || !entry->ignoresWindow(title))
        return false;
    if (_panel)
        _panel->hideTarragonPanel();
    return true;
}

void IgnoreList::ignoreCurrentWindow(IgnoreCode code) {
    const std::optional<RunningApplication> application = _workspace.activeApplication();
    const std::optional<std::string> title = _window.focusedWindowTitle();

    const std::optional<IgnoreDictionary> stored = IgnoreDictionary::load(_defaults);
    _ignoreList = stored.value_or(IgnoreDictionary());
    if (!stored)
        _ignoreList.store(_defaults);

    // An application without a bundle identifier has no place in the list.
    if (application && !application->bundleIdentifier.empty())
        addToList(*application, title, code);

    if (_panel)
        _panel->orderOut();
    _ignoreList.store(_defaults);
}

void IgnoreList::addToList(
    const RunningApplication& application, const std::optional<std::string>& title, IgnoreCode code) {
    const std::string& identifier = application.bundleIdentifier;
    // Read again rather than taken from the working copy, which is equal to it unless the list could not be stored.
    const std::optional<IgnoreDictionary> stored = IgnoreDictionary::load(_defaults);
    std::optional<TarragonBlacklist> entry = stored ? stored->entry(identifier) : std::nullopt;
    if (!entry) {
        entry.emplace();
        entry->setAppBundleID(identifier);
        entry->setAppName(application.name);
        _ignoreList.setEntry(identifier, *entry);
    }

    switch (code) {
    case IgnoreCode::App:
        entry->setIgnoreAllAppWindows(true);
        _ignoreList.setEntry(identifier, *entry);
        break;
    case IgnoreCode::Role:
        break; // listing the application is all that this does
    case IgnoreCode::Title:
        if (title) {
            std::vector<std::string> titles = entry->windowsWithTitlesToIgnore().value_or(std::vector<std::string>());
            titles.push_back(*title);
            entry->setWindowsWithTitlesToIgnore(std::move(titles));
            _ignoreList.setEntry(identifier, *entry);
        }
        break;
    }
}

} // namespace tarragon
