#pragma once

#include "Agent.h"
#include "Desktop.h"
#include "MenuObserver.h"
#include "MenuRecord.h"

#include <cstdint>
#include <functional>
#include <string>
#include <vector>

namespace tarragon::e2e {

// A user's hands and eyes on the mirrored menu: opens it with the hot key, looks at it and chooses in it.
class PopUp {
public:
    PopUp(Desktop& desktop, Agent& agent, MenuObserver& observer);

    // Presses the hot key; true when a menu is on the screen in time.
    bool open(Duration deadline = DefaultDeadline);
    // Presses a mouse button, by X's number, in its place; it stays held.
    bool openByButton(std::uint8_t button, Duration deadline = DefaultDeadline);
    // Forgets what was highlighted before. For menus that something else is about to open: the same menu of an earlier
    // window may have been elsewhere.
    void startAnew();
    bool isOpen();
    // Leaves it without choosing; true when no menu is on the screen any more.
    bool close();
    // How long the last open() took from the key to the mapped window.
    Duration openingTime() const { return _openingTime; }

    // The items of the open menu, as the program shows them. Highlights the first one.
    Menu items();
    // Opens the mirror of the application with these top-level titles, however long the program takes to notice that
    // it has come to the front. True when it is open.
    bool openWith(const std::vector<std::string>& titles, Duration deadline = Duration(15000));

    // Goes down the titles and chooses the last one. False when one of them cannot be had.
    bool chooseByKeyboard(const std::vector<std::string>& path);
    bool chooseByMouse(const std::vector<std::string>& path);
    // Moves the pointer onto an item of the innermost open menu.
    bool pointInto(const std::string& title);
    // Goes down the titles by keyboard and leaves the menu below the last one open; its items, empty when that failed.
    Menu openByKeyboard(const std::vector<std::string>& path);
    // Highlights an item of the innermost open menu.
    bool highlight(const std::string& title);

private:
    bool openBy(const std::function<void()>& press, Duration deadline);
    // Waits for a notice that is newer than the first `seen` ones and meets the condition, and keeps it.
    template <typename Condition>
    bool waitForNotice(std::size_t seen, Condition condition, Duration deadline = DefaultDeadline);
    bool openSubmenuByKeyboard();
    // Moves over a menu until something in it is highlighted, which tells what is in it. True when the title is.
    bool lookInto(const PixelRect& frame, const std::string& title);
    // Moves onto an item of the menu last noticed.
    bool pointAt(const std::string& title);

    Desktop& _desktop;
    Agent& _agent;
    MenuObserver& _observer;
    Duration _openingTime{0};
    std::size_t _seenBeforeOpening = 0;
    MenuObserver::Notice _notice;
};

} // namespace tarragon::e2e
