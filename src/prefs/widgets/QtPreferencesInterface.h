#pragma once

#include "platform/Platform.h"
#include "prefs/PreferencesWindow.h"

#include <iosfwd>
#include <string>

namespace tarragon {

// Makes preferences windows of the toolkit. Main thread only, after the application object was made.
class QtPreferencesInterface : public PreferencesInterface {
public:
    // The services outlive the windows. version is that of the program; standardError is where a person learns why the
    // program ends.
    QtPreferencesInterface(Platform platform, std::string version, std::ostream& standardError);

    std::unique_ptr<PreferencesWindow> loadWindow(PreferencesWindowController& controller) override;

private:
    Platform _platform;
    std::string _version;
    std::ostream& _standardError;
};

} // namespace tarragon
