#pragma once

#include "mirror/MenuItem.h"
#include "panels/PanelServices.h"
#include "panels/RKMenuBarOwner.h"
#include "panels/rules/ScreenTopBarRules.h"
#include "platform/Defaults.h"
#include "platform/Geometry.h"
#include "platform/InputEvents.h"
#include "platform/PanelSurfaces.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarragon {

class Menu;
class PanelButton;
class TarragonHackButton;
class TarragonPanelController;
class TarragonSTPanel;

// The menu bar at the top of one screen other than the first: shows the titles of the mirrored menu, hides itself above
// the screen if so set, and follows its settings by itself. Implemented in one file per area. Main thread only.
class RKMenuBar {
public:
    // What a bar needs of its surroundings. All of it outlives the bar.
    struct Surroundings {
        PanelServices services;
        Defaults& defaults;
        InputEvents* inputEvents = nullptr; // nullptr where the desktop's input cannot be watched
        RKMenuBarOwner& owner;
    };

    // Reads the settings, and observes them until the bar ends. Blocks for a second, so that a screen that has just
    // been attached has settled. Serves the screen at index 1, and shows nothing yet.
    explicit RKMenuBar(const Surroundings& surroundings);
    ~RKMenuBar();
    RKMenuBar(const RKMenuBar&) = delete;
    RKMenuBar& operator=(const RKMenuBar&) = delete;

    // The mirrored menu of the front application; nullptr before the first.
    const std::shared_ptr<Menu>& menu() const { return _menu; }
    void setMenu(std::shared_ptr<Menu> menu) { _menu = std::move(menu); }
    bool menuPopulated() const;
    // Index into the list of screens. Ignored beyond the number of screens; that number itself is taken.
    void setDisplayScreen(int index);
    bool screenTopAutoHide() const { return _screenTopAutoHide; }

    // Another application is in front, whose menu was set: shows its titles.
    void handleAppChange();
    // Makes the window and the titles anew from the settings.
    void refreshPanel();
    // Makes the window unless there is one, and fits it out; nothing without a second screen.
    void setupScreentopTarragonPanel();
    void addButtonsToScreentopTarragonPanel();
    // Gives the window its background. Makes it, with its titles, where there is none.
    void addGradientScreenTop();
    // Puts the bar to its place; closes it where its screen is gone, and builds it again where one has come back.
    void updateTarragonSTWindowPosition();
    // Slides a bar that hides itself in or out, as the pointer and the open menu have it.
    void slideOutCheck();
    void slideOutScreenTopMenubar();
    void slideInScreenTopMenubar();

    // A title's menu is open on the bar.
    bool checkIfMenuIsShowing() const;
    // Cocoa space; empty while there is no window.
    Rect frameOfST() const;
    // The frame with which the window was made last; empty before.
    const Rect& rectOfMenuBar() const { return _rectOfMenuBar; }
    void hideTarragonSTPanel();
    void unhideTarragonSTPanel();
    void clearAll();

    // keyPath is "values." followed by the key that has changed.
    void observeValueForKeyPath(const std::string& keyPath);

    // Single steps of the above, and what else can be asked of a bar.

    // Shows the menu of the application itself in bold.
    void boldenAppTitleMenu();
    void applyStyle(std::int64_t style, PanelButton& button) const;
    // Leaves every title where it is.
    void setSpacingBetweenSTPanelButtons(double spacing);
    // Directly above the window in front until the level is chosen anew, whether the bar hides itself or not.
    void resetLevels();
    // The system's own menu, built afresh.
    std::shared_ptr<Menu> addTarragonMenuToMenu();
    Rect convertCGtoNSRectCoords(const Rect& rectCG) const;
    Rect convertNSToCGRectCoords(const Rect& rectNS) const;
    // Watches for the end of drags, to no effect.
    void mouseUpMonitor();

private:
    void setupNotificationsToReceive();
    void loadDefaults();
    void updateAtInit();
    bool readBool(std::string_view key) const;
    std::int8_t readFontSize(std::string_view key) const;
    void readButtonStyle();

    std::size_t screenCount() const;
    // Of the screen that the bar serves; empty when there is no such screen.
    Rect screenFrameNS() const;
    PanelLevel levelOfBar() const;
    bool menuIsOpen() const;
    void slide(BarSlide slide);
    void setBarFrame(const Rect& frameNS);
    void keepOffOtherScreens();
    MenuFont menuBarFont() const;
    std::shared_ptr<TarragonHackButton> makeTitle(const MenuItem& item);

    Surroundings _surroundings;
    std::shared_ptr<Menu> _menu;
    // The window outlives its controller.
    std::unique_ptr<TarragonSTPanel> _tarragonSTPanel;
    std::unique_ptr<TarragonPanelController> _tarragonSTPanelController;
    std::shared_ptr<Menu> _horizontalBunch; // the titles that did not fit
    std::shared_ptr<TarragonHackButton> _bunchButton;

    std::int8_t _fontSizeSmall = 0; // in spite of its name a point size
    std::int8_t _titleFontSizeSmall = 0; // likewise
    std::int64_t _buttonStyle = 0;
    bool _screenTopSlidIn = false;
    bool _screenTopEnabled = false;
    bool _screenTopAutoHide = false;
    bool _screenTopTransparency = false;
    bool _screenTopHalfHotZone = false;
    bool _unpluggedPreviously = false; // the other screens were gone at the last placement
    int displayScreen = 1;
    Rect _screenTopLastScreenFrame{{-10000, -10000}, {1, 1}}; // of the screen, at the last placement
    Rect _rectOfMenuBar;
    std::vector<DefaultsObserver> _observers;
    EventMonitor _mouseUpMonitor = 0;
};

} // namespace tarragon
