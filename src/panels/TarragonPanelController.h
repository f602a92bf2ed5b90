#pragma once

#include "mirror/MenuPresenter.h"

#include <memory>

namespace tarragon {

class ButtonPanel;
class TarragonHackButton;

// What the titles of one panel have in common: which of them has its menu open. While one is open, titles follow the
// pointer, which the panel hears of whoever has grabbed it; nothing has to be polled for that. Main thread only.
class TarragonPanelController {
public:
    // The panel outlives the controller.
    explicit TarragonPanelController(ButtonPanel& window)
        : _window(window) { }
    ~TarragonPanelController();
    TarragonPanelController(const TarragonPanelController&) = delete;
    TarragonPanelController& operator=(const TarragonPanelController&) = delete;

    // A title's menu is open in this panel.
    bool bShowing() const { return _bShowing; }
    void setBShowing(bool showing) { _bShowing = showing; }
    // The title that owns the open menu, or the one that the pointer came to last; nullptr before the first.
    const std::shared_ptr<TarragonHackButton>& buttonShowingMenu() const { return _buttonShowingMenu; }
    void setButtonShowingMenu(std::shared_ptr<TarragonHackButton> button) { _buttonShowingMenu = std::move(button); }

    // Goes on where another controller of the same panel was, which may end then: its titles, and the menu that one of
    // them has open, are this one's from now on.
    void takeOver(TarragonPanelController& former);
    // Hears for the button what becomes of the menu that it is about to open.
    std::shared_ptr<MenuOpener> makeOpener(const std::shared_ptr<TarragonHackButton>& button);
    // After a new layout: the title that has the open menu now goes on where the former title was. Where none has it,
    // the menu closes.
    void takeOverOpenMenu();
    // Closes the menu that a title of this panel has open, if one has.
    void closeOpenMenu();

private:
    class Opener;
    void openNeighbour(const TarragonHackButton& button, MenuNeighbour neighbour);

    ButtonPanel& _window;
    bool _bShowing = false;
    std::shared_ptr<TarragonHackButton> _buttonShowingMenu;
    std::shared_ptr<Opener> _opener; // of the menu opened last
};

} // namespace tarragon
