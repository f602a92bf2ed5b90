#pragma once

#include "platform/linux/x11/X11FrontWindow.h"

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>

namespace tarragon {

class ApplicationDirectory;
class MenuBarSource;
class RunLoop;
class Timer;
class X11Connection;
class X11Windows;
struct WindowDescription;

// Listens to the X server for what becomes of the active window, and tells of every switch once: another application
// in front, another menu bar shown by the same one, or none in front any more. Also keeps the order in which windows
// were active.
//
// Window managers take the focus away for a moment between two windows, and for longer while they show their own menus
// and while a drag or a pop-up holds the keyboard. No window counts as being in front only when none has become active
// within a settling time and nobody holds the keyboard away from a window that is still there.
//
// Whoever is told of a switch reads what is in front at that moment, and takes a while. Another window that was in
// front meanwhile, and that they have seen, counts although it is gone again before anybody looks.
//
// A window may publish its menu bar a little late: while it shows another one's it is asked again a few times.
//
// Main thread only. The objects passed in outlive it; it outlives the run loop.
class X11FrontWatch {
public:
    using Changed = std::function<void(const X11FrontWindowChange& change)>;

    // Without a source of menu bars, each window that is no dialog, sheet or palette counts as having its own.
    X11FrontWatch(X11Connection& connection, X11Windows& windows, ApplicationDirectory& applications, RunLoop& runLoop,
        MenuBarSource* menuBars);
    ~X11FrontWatch();
    X11FrontWatch(const X11FrontWatch&) = delete;
    X11FrontWatch& operator=(const X11FrontWatch&) = delete;

    // Begins to listen, once; what is in front now is no switch. False when the server does not answer.
    [[nodiscard]] bool begin(Changed changed);

private:
    // What a look at the active window found.
    struct Look {
        X11FrontWindowChange change;
        bool isAbsent = false;
    };

    bool selectEvents(std::uint32_t window, std::uint32_t mask);
    bool takeEvents();
    bool takeRootChange(std::uint32_t atom);
    bool takeFocusChange(std::uint8_t type, std::uint8_t mode);
    void windowIsGone(std::uint32_t window);
    void forgetUnmanagedWindows();

    void handleEvents();
    Look look();
    void watchWindow(std::uint32_t window);
    X11FrontWindowChange updateFront(const WindowDescription& description);
    void windowIsAbsent();
    void settleAbsence();
    void report(X11FrontWindowChange change);
    X11FrontWindowChange lookWhenOthersWereTold();

    std::uint32_t menuBarOf(std::uint32_t window, bool isPassing);
    void learnMenuBar();
    void expectLateMenuBar(std::uint32_t window, bool isPassing, std::uint32_t menuBar);
    void logLook(const WindowDescription& description, const X11FrontWindowChange& change) const;

    X11Connection& _connection;
    X11Windows& _windows;
    ApplicationDirectory& _applications;
    RunLoop& _runLoop;
    MenuBarSource* _menuBars;
    Changed _changed;
    // A connection for events alone: no other thread reads it, so that every event wakes the run loop.
    std::unique_ptr<X11Connection> _events;
    X11FrontWindow _front;
    std::optional<std::uint32_t> _watchedWindow; // whose state and focus are watched
    bool _watchedIsPassing = false;
    bool _keyboardIsHeld = false; // by a grab that left the focus at the watched window
    bool _isAbsent = false; // no window was active at the last look
    std::unique_ptr<Timer> _absenceTimer;
    std::unique_ptr<Timer> _lateMenuBarTimer;
    std::uint32_t _lateWindow = 0; // which is asked again for its menu bar
    std::size_t _lateQuestions = 0;
    bool _menuBarIsDue = false;
};

} // namespace tarragon
