#pragma once

#include "panels/PanelButton.h"
#include "panels/PanelServices.h"

#include <cstdint>
#include <memory>

namespace tarragon {

class Menu;
class TarragonPanelController;
class TarragonPanelOwner;

// A menu title in a panel: opens its menu when it is pressed, and when the pointer comes to it while another title's
// menu is open.
class TarragonHackButton : public PanelButton, public std::enable_shared_from_this<TarragonHackButton> {
public:
    // What a title needs of its surroundings. All of it outlives the button.
    struct Surroundings {
        PanelServices services;
        TarragonPanelOwner& owner;
        TarragonPanelController& controller;
    };

    // At a position counted from 0, or right of an x of a horizontal panel, or of a screen-top bar.
    static std::shared_ptr<TarragonHackButton> initWithTitleWithPosition(
        std::string title, int position, const Surroundings& surroundings);
    static std::shared_ptr<TarragonHackButton> initWithTitleWithPositionByWidth(
        std::string title, double x, const Surroundings& surroundings);
    static std::shared_ptr<TarragonHackButton> initForSTWithTitle(
        std::string title, double x, const Surroundings& surroundings);

    // Another controller of the same panel, which outlives the button.
    void setController(TarragonPanelController& controller) { _controller = &controller; }
    // What the title opens; nullptr for nothing.
    const std::shared_ptr<Menu>& menu() const { return _menu; }
    void setMenu(std::shared_ptr<Menu> menu) { _menu = std::move(menu); }
    // Its menu is being shown.
    bool bShow() const { return _bShow; }
    // The button sits on a screen-top bar.
    bool appleBar() const { return _appleBar; }
    void setAppleBar(bool appleBar) { _appleBar = appleBar; }
    // Draw the title in bold, as that of the application.
    bool boldAppName() const { return _boldAppName; }
    void setBoldAppName(bool bold) { _boldAppName = bold; }
    // Draw in the look of a menu bar, in a font of fontSizeForAppleLike points.
    bool keepButtonsAppleLike() const { return _keepButtonsAppleLike; }
    void setKeepButtonsAppleLike(bool keep) { _keepButtonsAppleLike = keep; }
    std::int32_t fontSizeForAppleLike() const { return _fontSizeForAppleLike; }
    void setFontSizeForAppleLike(std::int32_t size) { _fontSizeForAppleLike = size; }

    ButtonContent content() const override;
    void mouseDown(const PanelMouseEvent& event) override;
    void rightMouseDown(const PanelMouseEvent& event) override;
    void mouseEntered() override;
    // Acts like entering, but for the look of the moment in between.
    void mouseExited() override;
    std::shared_ptr<Menu> menuForEvent();

    // Opens the menu, or closes it when it is open, and returns at once.
    void showMenu();
    // Closes the menu unless titles follow the pointer now.
    void hideMenu();
    void closeMenu();
    // Opens the menu in place of the one that another title of the panel has open.
    void openInsteadOfOther();
    // Stands for a button of a former layout whose menu is still open.
    void takeOverOpenMenu();
    // The menu has closed otherwise than by another title: titles no longer follow the pointer.
    void menuHasClosed();

private:
    TarragonHackButton(std::string title, const Rect& frame, const Surroundings& surroundings);
    void popUp();
    void letGoOfMenu();
    Point menuLocationNS() const;

    PanelServices _services;
    TarragonPanelOwner& _owner;
    TarragonPanelController* _controller; // never nullptr
    std::shared_ptr<Menu> _menu;
    bool _bShow = false;
    bool _appleBar = false;
    bool _boldAppName = false;
    bool _keepButtonsAppleLike = false;
    std::int32_t _fontSizeForAppleLike = 0;
    bool _mouseIsOver = false;
    bool _pointerIsInside = false; // unlike _mouseIsOver, which stays on after leaving
};

} // namespace tarragon
