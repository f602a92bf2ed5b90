#pragma once

#include "platform/InputEvents.h"

#include <memory>

#include <QEvent>
#include <QObject>

class QWidget;

namespace tarragon {

class Displays;
class MenuTracking;

// Lets an item be chosen in one movement with the mouse button that opened the pop-up: held, moved onto the item, and
// let go there. The application below the pointer has got the press of that button, and so gets its movements and its
// release as well, in place of the menus; those learn of them here. Left and right button need none of this: a pop-up
// that they open is opened by a window of ours.
//
// A window manager may hold the press up for a moment before it lets it go on to the application. The outermost window
// therefore lets everything through as long as the button is held, lest it gets the press itself once it is there.
//
// Where the pop-up has opened the button may be let go without a choice: the menus stay open for a click.
//
// Belongs to the outermost window of the pop-up. Main thread only.
class HeldButton : public QObject {
public:
    // Follows the button that is held at this moment. The window is not shown yet. The services outlive the object.
    HeldButton(
        InputEvents& inputEvents, Displays& displays, std::shared_ptr<const MenuTracking> tracking, QWidget& window);
    ~HeldButton() override;
    HeldButton(const HeldButton&) = delete;
    HeldButton& operator=(const HeldButton&) = delete;

private:
    void handle(const InputEvent& event);
    void moved();
    void letGo();
    void stop();
    QPoint pointer() const;
    void send(QEvent::Type type, const QPoint& point, bool isHeld) const;

    Displays& _displays;
    std::shared_ptr<const MenuTracking> _tracking;
    QWidget& _window;
    std::unique_ptr<EventTap> _tap; // nullptr once the button was let go
    bool _hasLeft = false; // the place where the pop-up has opened
};

} // namespace tarragon
