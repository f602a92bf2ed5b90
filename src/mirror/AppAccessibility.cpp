#include "mirror/AppAccessibility.h"

#include "mirror/AuxiliaryMenu.h"
#include "mirror/CacheEligibility.h"
#include "mirror/MenuCache.h"
#include "mirror/MenuCleanUp.h"
#include "mirror/MenuConverter.h"
#include "mirror/ProxyMenuItem.h"
#include "mirror/RecentSelections.h"
#include "mirror/SubmenuFiller.h"
#include "mirror/SystemFillingThreads.h"
#include "mirror/elements/TextOrNil.h"
#include "mirror/elements/UIElementUtilities.h"
#include "platform/AccessibilityNames.h"
#include "platform/Log.h"

#include <algorithm>
#include <unistd.h>

namespace tarragon {

namespace {

// The observation stays registered for the program's life; but for a line in the log nothing follows from it.
void handleMenuSelection(const Notification& /*notification*/) {
    log(LogCategory::Menus, [] { return "an item was chosen"; });
}

Element focusedApplicationOf(Accessibility& accessibility, const Element& systemElement) {
    const Value value = accessibility.copyAttributeValue(systemElement, attribute::FocusedApplication);
    const auto* application = valueAs<Element>(value);
    return application ? *application : Element();
}

} // namespace

std::shared_ptr<AppAccessibility> AppAccessibility::initWithFocusedApp(const Platform& platform) {
    return initWithFocusedApp(platform, std::make_unique<SystemFillingThreads>());
}

std::shared_ptr<AppAccessibility> AppAccessibility::initWithFocusedApp(
    const Platform& platform, std::unique_ptr<FillingThreads> threads) {
    Element systemElement = platform.accessibility.systemWideElement();
    if (!systemElement)
        return nullptr;
    Element application = focusedApplicationOf(platform.accessibility, systemElement);
    if (!application)
        return nullptr;
    return std::shared_ptr<AppAccessibility>(
        new AppAccessibility(platform, std::move(threads), std::move(systemElement), std::move(application)));
}

AppAccessibility::AppAccessibility(
    const Platform& platform, std::unique_ptr<FillingThreads> threads, Element systemElement, Element application)
    : _platform(platform)
    , _systemAXUIElementRef(std::move(systemElement))
    , _appAXUIElementRef(std::move(application))
    , _menuCache(std::make_shared<Menu>("MenuCache"))
    , _cache(std::make_unique<MenuCache>(std::move(threads))) {
    initializeModifierLookUpTable();
    initializeGlyphLookUpTable();
    registerForNotifications();
}

AppAccessibility::~AppAccessibility() = default;

void AppAccessibility::registerForNotifications() {
    _platform.notificationCenter.addObserver("NSMenuDidSendActionNotification", nullptr, handleMenuSelection);
}

const Menu::SharedTitle& AppAccessibility::cocoaMenuTitle() {
    static const Menu::SharedTitle title = std::make_shared<const std::string>("CocoaMenu");
    return title;
}

Element AppAccessibility::elementOfAppWithFocus() {
    return focusedApplicationOf(_platform.accessibility, _systemAXUIElementRef);
}

void AppAccessibility::update() {
    _currentAppName = focusedAppName();
    updateRootMenu();
}

void AppAccessibility::updateRootMenu() {
    const ReadBatch batch(_platform.accessibility);
    _menuCache->removeAllItems();
    _root.removeAllItems();
    _appAXUIElementRef = elementOfAppWithFocus();
    if (!_appAXUIElementRef) {
        log(LogCategory::Menus, [] { return "the mirror is empty: no application has the focus"; });
        return;
    }
    _menuAXUIElementRef = getAXMenuBarFor(_appAXUIElementRef);
    if (!_menuAXUIElementRef) {
        log(LogCategory::Menus,
            [this] { return "the mirror is empty: " + textOrNil(_currentAppName) + " has no menu bar"; });
        return;
    }
    const auto cacheable = _root.rebuild(
        converter(), _menuAXUIElementRef, _options, [this](const MenuItem& item) { return menuShouldBeCached(item); });
    // The fillings start when the items have their final titles, under which a menu that opens is looked for.
    for (const auto& item : cacheable)
        cacheMenuForMenuItem(*item);
}

Element AppAccessibility::getAXMenuBarFor(const Element& element) {
    const Value value = UIElementUtilities::valueOfAttribute(_platform.accessibility, attribute::MenuBar, element);
    const auto* menuBar = valueAs<Element>(value);
    return menuBar ? *menuBar : Element();
}

std::optional<std::vector<Element>> AppAccessibility::menuItemsIn(const Element& element) {
    const Value value = UIElementUtilities::valueOfAttribute(_platform.accessibility, attribute::Children, element);
    const auto* children = valueAs<std::vector<Element>>(value);
    return children ? std::optional(*children) : std::nullopt;
}

bool AppAccessibility::menuItemsCleared(const Element& element) {
    return !menuItemsIn(element);
}

bool AppAccessibility::menuItemsAllDisabled(const Element& element) {
    const ReadBatch batch(_platform.accessibility);
    const auto children = menuItemsIn(element);
    if (!children)
        return false;
    return std::ranges::none_of(*children, [this](const Element& child) {
        return !isNil(UIElementUtilities::valueOfAttribute(_platform.accessibility, attribute::Enabled, child));
    });
}

Element AppAccessibility::getAXElementOfOurProcess() {
    return _platform.accessibility.applicationElement(getpid());
}

void AppAccessibility::appendAuxiliaryMenuTo(Menu& root) {
    appendAuxiliaryMenu(root, _auxiliaryMenu);
}

MenuConverter AppAccessibility::converter() {
    const ConversionOptions options{
        .foldAlternateItems = _options.foldAlternateItems, .keyEquivalents = _options.keyEquivalents};
    return {_platform.accessibility, _tables, _appAXUIElementRef, options, this, weak_from_this()};
}

void AppAccessibility::menuNeedsUpdate(Menu& menu) {
    const bool isRoot = &menu == _root.menu().get();
    const bool isOurs = menu.sharedTitle() != cocoaMenuTitle();
    if (isOurs && !isRoot && cacheExistsForMenu(menu)) {
        // What the items are is known.
        const ReadBatch batch(_platform.accessibility, ReadBatchDepth::AsAsked);
        SubmenuFiller(_platform.accessibility, converter()).fillFromCache(menu, *_cache, [this] {
            return focusedAppName();
        });
        return;
    }
    const ReadBatch batch(_platform.accessibility);
    if (isOurs) {
        if (isRoot)
            _root.complete(_options, _auxiliaryMenu);
        else
            SubmenuFiller(_platform.accessibility, converter()).fillFromApplication(menu);
    }
    if (focusedAppName() == "Finder")
        removeDuplicateMenuItems(menu);
    if (menu.title() == "Services")
        removeDisabledServicesMenuItems(_platform.accessibility, menu);
}

bool AppAccessibility::menuShouldBeCached(const MenuItem& item) {
    return menuMayBeCached(focusedAppName(), item.title());
}

void AppAccessibility::cacheMenuForMenuItem(const MenuItem& item) {
    auto appName = focusedAppName();
    if (!appName)
        return;
    // The thread works on copies of its own, and so never meets a menu that the main thread changes meanwhile.
    auto fillMenu = [&accessibility = _platform.accessibility, converter = converter(),
                        element = ProxyMenuItem::elementOfItem(item)](
                        Menu& menu, const MenuCache::ShouldStop& shouldStop) {
        const ReadBatch batch(accessibility);
        MenuConverter filling = converter;
        filling.setShouldStop(shouldStop);
        filling.processSubAXMenuAsNSMenu(element, menu);
    };
    _cache->cacheMenuForMenuItem(
        std::make_shared<const std::string>(*std::move(appName)), item.copy(), std::move(fillMenu));
}

bool AppAccessibility::cacheExistsForMenu(const Menu& menu) {
    return _cache->cacheExistsForMenu([this] { return focusedAppName(); }, menu);
}

void AppAccessibility::clearCacheForAppKey(const std::string& appName) {
    _cache->clearCacheForAppKey(appName);
}

void AppAccessibility::menuDidClose(Menu& /*menu*/) {
    if (_appController)
        _appController->resetLevels();
}

bool AppAccessibility::menuHasKeyEquivalent(Menu& /*menu*/) {
    return true;
}

void AppAccessibility::menuHasClosed() {
    if (_appController)
        _appController->menuHasClosed();
}

void AppAccessibility::addRecentSelectionsMenuTo(Menu& root) {
    const auto name = [this] {
        return UIElementUtilities::descriptionOfValue(_platform.accessibility, _appAXUIElementRef, false);
    };
    addRecentSelections(
        root, *_root.menu(), _recentSelectionsList, name, [this](Menu& menu) { menuNeedsUpdate(menu); });
}

void AppAccessibility::updateRecentSelectionsListWithItem(MenuItem& /*item*/) {
    // Nothing is recorded: the list stays empty in this version.
}

std::optional<std::string> AppAccessibility::focusedAppName() {
    return window().focusedAppName();
}

Element AppAccessibility::focusedWindow() {
    return window().focusedWindow();
}

std::optional<std::string> AppAccessibility::focusedWindowRole() {
    return window().focusedWindowRole();
}

std::optional<std::string> AppAccessibility::focusedWindowTitle() {
    return window().focusedWindowTitle();
}

Rect AppAccessibility::focusedWindowFrameNS() {
    return window().focusedWindowFrameNS();
}

Rect AppAccessibility::focusedWindowFrameCG() {
    return window().focusedWindowFrameCG();
}

Point AppAccessibility::focusedWindowPosition() {
    return window().focusedWindowPosition();
}

Point AppAccessibility::focusedWindowPositionCG() {
    return window().focusedWindowPositionCG();
}

Point AppAccessibility::focusedWindowTitlePosition() {
    return window().focusedWindowTitlePosition();
}

Rect AppAccessibility::focusedWindowTitleFrame() {
    return window().focusedWindowTitleFrame();
}

bool AppAccessibility::isFinderDesktopWindowActive() {
    return window().isFinderDesktopWindowActive();
}

bool AppAccessibility::isAuxiliaryWindowActive() {
    return window().isAuxiliaryWindowActive();
}

bool AppAccessibility::isFocusedWindowFullScreen() {
    return window().isFocusedWindowFullScreen();
}

bool AppAccessibility::isFocusedWindowMinimized() {
    return window().isFocusedWindowMinimized();
}

bool AppAccessibility::isFocusedWindowHidden() {
    return window().isFocusedWindowHidden();
}

std::optional<Screen> AppAccessibility::focusedWindowScreen() {
    return window().focusedWindowScreen();
}

std::int32_t AppAccessibility::focusedWindowScreenArrayOrder() {
    return window().focusedWindowScreenArrayOrder();
}

Rect AppAccessibility::focusedWindowScreenRectNS() {
    return window().focusedWindowScreenRectNS();
}

Rect AppAccessibility::focusedWindowScreenRectCG() {
    return window().focusedWindowScreenRectCG();
}

Rect AppAccessibility::convertNSToCGRectCoords(const Rect& rectNS) {
    return window().convertNSToCGRectCoords(rectNS);
}

void AppAccessibility::setPositionOfFocusedWindow(float x, float y) {
    window().setPositionOfFocusedWindow(x, y);
}

void AppAccessibility::setSizeOfFocusedWindow(float w, float h) {
    window().setSizeOfFocusedWindow(w, h);
}

} // namespace tarragon
