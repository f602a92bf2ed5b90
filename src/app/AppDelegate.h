#pragma once

#include "app/UserInterface.h"
#include "platform/Platform.h"
#include "prefs/PreferencesWindowController.h"
#include "triggers/JTMouseHotKey.h"
#include "updates/UpdateChecker.h"

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <set>
#include <utility>

namespace tarragon {

class AppController;

// The application object's delegate: owns the controller and carries out the small actions of the system's own menu.
// Main thread only.
class AppDelegate : public PreferencesWindowControllerDelegate {
public:
    // Registers the default settings first, before anything reads one. Everything passed in outlives the delegate.
    // standardError gets what a program that cannot start has to say.
    AppDelegate(const Platform& platform, const UserInterface& userInterface, UpdateChecker& updateChecker,
        WebPages webPages, std::ostream& standardError);
    ~AppDelegate() override;
    AppDelegate(const AppDelegate&) = delete;
    AppDelegate& operator=(const AppDelegate&) = delete;

    // Registers the 33 settings with their defaults, and the same values as those that a reset restores.
    static void setupPreferenceDefaults(Defaults& defaults);

    // Makes what is there before the controller: the mouse-button trigger. False when that cannot be had: the program
    // is ending then, and is not to be launched.
    [[nodiscard]] bool loadMainInterface();
    // Creates the controller, and with it everything else, unless there is one.
    void applicationWillFinishLaunching();
    // The first launch opens the help, and the mouse-button trigger begins to act. Without access the help has nothing
    // to explain yet: the launch does not count then, and the next one is the first again. After
    // applicationWillFinishLaunching.
    void applicationDidFinishLaunching();
    // The program was started again while it runs: shows the preferences. False: there is nothing more to do.
    bool applicationShouldHandleReopen();
    // Drops what the controller holds and stops listening to the mouse. True: the program may end at once.
    bool applicationShouldTerminate();

    // Shows the preferences, which ask for access, when the accessibility interface is neither switched on nor open to
    // this process.
    void accessibilityCheck();
    // The hot key was registered anew, or is not registered any more. Where the desktop has refused it, the user is
    // told, once for each combination.
    void hotKeyRegistrationDidChange();
    // The menus of other applications can be read now.
    void accessibilityWasCreated();

    void displayAboutPanel();
    void showPreferencePanel();
    // The same, for controls.
    void showPreferencePanelAction() { showPreferencePanel(); }
    void showPreferencePanelWithHelpAsInitial();
    // In the user's browser; nothing when the program was built without an address.
    void openScreencastWebpage() override;
    // Asks whether there is a newer version, once at a time, and shows what came of it.
    void checkForUpdates();
    // Ends the program, unless applicationShouldTerminate objects. The reader is gone when this returns.
    void terminate() override;

    // Memory that the program occupies, in bytes; 0 where the desktop does not tell.
    std::uint64_t memoryUsed() const;
    // Ends the program and has a fresh copy of it started once it has ended; it ends also where nothing can start it
    // again. The reader is gone when this returns.
    void restartAppUsingSUUpdater() override;

    AppController* appController() const { return _appController.get(); }

private:
    bool accessibilityIsMissing();
    void welcomeOnFirstLaunch();
    void writeFirstRun(bool value);
    PreferencesWindowController& preferenceController();
    void openPage(const std::string& address);
    void showUpdateOutcome(const UpdateOutcome& outcome);

    const Platform& _platform;
    UserInterface _userInterface;
    UserPanels& _panels;
    UpdateChecker& _updateChecker;
    WebPages _webPages;
    JTMouseHotKey _mouseHotKey;
    std::unique_ptr<AppController> _appController;
    std::unique_ptr<PreferencesWindowController> _preferenceController; // from its first use on
    std::set<std::pair<std::int64_t, std::uint32_t>> _toldRefusals; // key codes with their flags
    bool _restarts = false; // a fresh copy was asked for
};

} // namespace tarragon
