#pragma once

#include "app/UserInterface.h"
#include "platform/Platform.h"
#include "triggers/JTMouseHotKey.h"
#include "updates/UpdateChecker.h"

#include <cstdint>
#include <iosfwd>
#include <memory>
#include <string>

namespace tarragon {

class AppController;

// The application object's delegate: owns the controller and carries out the small actions of the system's own menu.
// Main thread only.
class AppDelegate {
public:
    // Registers the default settings first, before anything reads one. Everything passed in outlives the delegate.
    // settingsURL is where the user finds the stored settings. standardError gets what a program that cannot start has
    // to say.
    AppDelegate(const Platform& platform, const UserInterface& userInterface, UpdateChecker& updateChecker,
        std::string settingsURL, std::ostream& standardError);
    ~AppDelegate();
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
    // The program was started again while it runs. False: there is nothing more to do.
    bool applicationShouldHandleReopen();
    // Drops what the controller holds and stops listening to the mouse. True: the program may end at once.
    bool applicationShouldTerminate();

    // Asks for the permission when the accessibility interface is neither switched on nor open to this process.
    void accessibilityCheck();

    void displayAboutPanel();
    void showPreferencePanel();
    void showPreferencePanelWithHelpAsInitial();
    // Asks whether there is a newer version, once at a time, and shows what came of it.
    void checkForUpdates();
    // Ends the program, unless applicationShouldTerminate objects. The reader is gone when this returns.
    void terminate();

    // Memory that the program occupies, in bytes; 0 where the desktop does not tell.
    std::uint64_t memoryUsed() const;
    // Ends the program and has a fresh copy of it started once it has ended; it ends also where nothing can start it
    // again. The reader is gone when this returns.
    void restartAppUsingSUUpdater();

    AppController* appController() const { return _appController.get(); }

private:
    bool accessibilityIsMissing();
    void welcomeOnFirstLaunch();
    void writeFirstRun(bool value);
    void showAccessibilityAlert();
    void showUpdateOutcome(const UpdateOutcome& outcome);

    const Platform& _platform;
    UserInterface _userInterface;
    UserPanels& _panels;
    UpdateChecker& _updateChecker;
    std::string _settingsURL;
    JTMouseHotKey _mouseHotKey;
    std::unique_ptr<AppController> _appController;
    bool _restarts = false; // a fresh copy was asked for
};

} // namespace tarragon
