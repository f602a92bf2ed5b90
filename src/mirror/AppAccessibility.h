#pragma once

#include "mirror/FocusedWindowQueries.h"
#include "mirror/Menu.h"
#include "mirror/MenuItemTables.h"
#include "mirror/MenuReaderOwner.h"
#include "mirror/ReaderOptions.h"
#include "mirror/RootMenu.h"
#include "platform/Platform.h"

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

namespace tarragon {

class FillingThreads;
class MenuCache;

// The one object that knows the front application's menu bar. It mirrors the menu bar as a Menu whose submenus are
// filled when they open and whose items press the real ones, and answers questions about the front window. Each part of
// that is done by an object of its own; this one says what happens when.
//
// Lives for the whole run, on the main thread. The root menu is the same object all the time. The reader must outlive
// every view of its menus; it takes itself out of the root menu when it is destroyed.
class AppAccessibility : public MenuDelegate, public std::enable_shared_from_this<AppAccessibility> {
public:
    // nullptr when the accessibility interface or the focused application cannot be had. The services outlive the
    // reader.
    [[nodiscard]] static std::shared_ptr<AppAccessibility> initWithFocusedApp(const Platform& platform);
    // The same with threads of the caller's choosing for the fillings of the menu cache.
    [[nodiscard]] static std::shared_ptr<AppAccessibility> initWithFocusedApp(
        const Platform& platform, std::unique_ptr<FillingThreads> threads);
    ~AppAccessibility() override;
    // A menu with this very title object, not just an equal text, is left alone when it opens: its items are its own.
    static const Menu::SharedTitle& cocoaMenuTitle();
    AppAccessibility(const AppAccessibility&) = delete;
    AppAccessibility& operator=(const AppAccessibility&) = delete;

    // Options. A change shows after the next update.
    bool showAppleMenu() const { return _options.showAppleMenu; }
    void setShowAppleMenu(bool show) { _options.showAppleMenu = show; }
    bool showApplicationMenu() const { return _options.showApplicationMenu; }
    void setShowApplicationMenu(bool show) { _options.showApplicationMenu = show; }
    bool showRecentSelections() const { return _options.showRecentSelections; }
    void setShowRecentSelections(bool show) { _options.showRecentSelections = show; }
    bool foldAlternateItems() const { return _options.foldAlternateItems; }
    void setFoldAlternateItems(bool fold) { _options.foldAlternateItems = fold; }
    bool keyEquivalents() const { return _options.keyEquivalents; }
    void setKeyEquivalents(bool copy) { _options.keyEquivalents = copy; }
    // The program's own menu, shown at the end of the root menu; nullptr for none.
    const std::shared_ptr<Menu>& auxiliaryMenu() const { return _auxiliaryMenu; }
    void setAuxiliaryMenu(std::shared_ptr<Menu> menu) { _auxiliaryMenu = std::move(menu); }
    // The mirror's root; never nullptr.
    const std::shared_ptr<Menu>& menu() const { return _root.menu(); }
    // The front application's name at the last update.
    const std::optional<std::string>& currentAppName() const { return _currentAppName; }
    void setCurrentAppName(std::optional<std::string> name) { _currentAppName = std::move(name); }
    // Not owned; nullptr for none.
    MenuReaderOwner* appController() const { return _appController; }
    void setAppController(MenuReaderOwner* owner) { _appController = owner; }

    // Build the tables that shortcuts are read by; called once at the start.
    void initializeModifierLookUpTable() { _tables.initializeModifierLookUpTable(); }
    void initializeGlyphLookUpTable() { _tables.initializeGlyphLookUpTable(); }

    // Reading the menu bar.
    Element elementOfAppWithFocus();
    void update();
    // Leaves the root menu empty when there is no focused application or it has no menu bar.
    void updateRootMenu();
    Element getAXMenuBarFor(const Element& element);
    // Nothing when the children cannot be read.
    std::optional<std::vector<Element>> menuItemsIn(const Element& element);
    [[nodiscard]] bool menuItemsCleared(const Element& element);
    // True when no child says whether it is enabled, as for an empty list; false when the children cannot be read.
    [[nodiscard]] bool menuItemsAllDisabled(const Element& element);
    Element getAXElementOfOurProcess();
    void appendAuxiliaryMenuTo(Menu& root);

    // The menu delegate.
    void menuNeedsUpdate(Menu& menu) override;
    void menuDidClose(Menu& menu) override;
    bool menuHasKeyEquivalent(Menu& menu) override;

    // Tells the owner that the menu has closed.
    void menuHasClosed();

    // The menu cache. The top-level menus that may be cached are converted in the background after each rebuild; a menu
    // that is found there when it opens is copied, and only what its items say of their state is read.
    [[nodiscard]] bool menuShouldBeCached(const MenuItem& item);
    // Starts the conversion of a top-level item's submenu on a thread of its own.
    void cacheMenuForMenuItem(const MenuItem& item);
    [[nodiscard]] bool cacheExistsForMenu(const Menu& menu);
    void clearCacheForAppKey(const std::string& appName);

    // Recent selections: an option that nothing uses yet. The list holds item keys and stays empty.
    const std::vector<std::string>& recentSelectionsList() const { return _recentSelectionsList; }
    void setRecentSelectionsList(std::vector<std::string> keys) { _recentSelectionsList = std::move(keys); }
    void addRecentSelectionsMenuTo(Menu& root);
    void updateRecentSelectionsListWithItem(MenuItem& item);

    // The focused window of the application that the last rebuild found, as FocusedWindowQueries says. The name is that
    // of the application in front, a fresh string each time; nothing when there is none.
    std::optional<std::string> focusedAppName();
    Element focusedWindow(); // nil when there is none
    std::optional<std::string> focusedWindowRole();
    std::optional<std::string> focusedWindowTitle();
    Rect focusedWindowFrameNS();
    Rect focusedWindowFrameCG();
    Point focusedWindowPosition(); // bottom-left corner, Cocoa space
    Point focusedWindowPositionCG(); // top-left corner, screen space
    Point focusedWindowTitlePosition(); // screen space; (0, 0) without a title element
    Rect focusedWindowTitleFrame(); // Cocoa space
    bool isFinderDesktopWindowActive();
    bool isAuxiliaryWindowActive();
    bool isFocusedWindowFullScreen();
    bool isFocusedWindowMinimized(); // true when there is no focused window
    bool isFocusedWindowHidden(); // of the whole application
    std::optional<Screen> focusedWindowScreen();
    std::int32_t focusedWindowScreenArrayOrder();
    Rect focusedWindowScreenRectNS();
    Rect focusedWindowScreenRectCG();
    Rect convertNSToCGRectCoords(const Rect& rectNS);
    void setPositionOfFocusedWindow(float x, float y); // top-left corner, screen space
    void setSizeOfFocusedWindow(float w, float h);

private:
    AppAccessibility(
        const Platform& platform, std::unique_ptr<FillingThreads> threads, Element systemElement, Element application);
    void registerForNotifications();
    MenuConverter converter();
    FocusedWindowQueries window() const { return {_platform, _appAXUIElementRef}; }

    Platform _platform;
    Element _systemAXUIElementRef;
    Element _appAXUIElementRef;
    Element _menuAXUIElementRef;
    RootMenu _root{this};
    std::shared_ptr<Menu> _menuCache; // emptied at every rebuild; nothing fills it
    std::shared_ptr<Menu> _auxiliaryMenu;
    std::vector<std::string> _recentSelectionsList;
    MenuItemTables _tables;
    std::optional<std::string> _currentAppName;
    MenuReaderOwner* _appController = nullptr;
    ReaderOptions _options;
    // Last: the fillings end before anything that they use goes away.
    std::unique_ptr<MenuCache> _cache;
};

} // namespace tarragon
