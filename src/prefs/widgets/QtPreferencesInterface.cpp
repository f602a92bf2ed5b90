#include "prefs/widgets/QtPreferencesInterface.h"

#include "prefs/widgets/QtPreferencesWindow.h"

#include <utility>

namespace tarragon {

QtPreferencesInterface::QtPreferencesInterface(Platform platform, std::string version, std::ostream& standardError)
    : _platform(std::move(platform))
    , _version(std::move(version))
    , _standardError(standardError) { }

std::unique_ptr<PreferencesWindow> QtPreferencesInterface::loadWindow(PreferencesWindowController& controller) {
    return std::make_unique<QtPreferencesWindow>(_platform, controller, _version, _standardError);
}

} // namespace tarragon
