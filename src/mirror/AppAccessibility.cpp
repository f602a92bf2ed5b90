#include "mirror/AppAccessibility.h"

#include "mirror/AuxiliaryMenu.h"
#include "mirror/MenuCache.h"
#include "mirror/MenuCleanUp.h"
#include "mirror/MenuConverter.h"
#include "mirror/RecentSelections.h"
#include "mirror/SystemFillingThreads.h"
#include "mirror/elements/UIElementUtilities.h"
#include "platform/AccessibilityNames.h"

#include <algorithm>
#include <iterator>
#include <unistd.h>

namespace tarragon {

namespace {

constexpr const char* AppleTitle = "Apple";
// The private-use character that the system font of some desktops draws as the maker's mark.
constexpr const char* AppleMark = "\uF8FF";

// The observation of chosen items stays registered for the program's life; nothing follows from it.
void handleMenuSelection(const Notification& /*notification*/) { }

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
    , _menu(std::make_shared<Menu>("Fennick"))
    , _menuCache(std::make_shared<Menu>("MenuCache"))
    , _cache(std::make_unique<MenuCache>(std::move(threads))) {
    _menu->setDelegate(this);
    registerForNotifications();
}

AppAccessibility::~AppAccessibility() {
    _cache.reset();
    _menu->removeAllItems();
    _menu->setDelegate(nullptr);
}

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
    _menu->removeAllItems();
    _appAXUIElementRef = elementOfAppWithFocus();
    if (!_appAXUIElementRef)
        return;
    _menuAXUIElementRef = getAXMenuBarFor(_appAXUIElementRef);
    if (!_menuAXUIElementRef)
        return;
    converter().processAXMenuAsNSMenu(_menuAXUIElementRef, *_menu, std::nullopt);

    if (!_showApplicationMenu) {
        const auto items = _menu->items();
        for (const auto& item : items) {
            if (item->title() != AppleTitle)
                _menu->removeItem(*item);
        }
    }
    const auto cacheable = cacheableItems();
    removeBrokenMenuItems(*_menu);
    showAppleMenuOrRemoveIt();
    // The fillings start when the items have their final titles, under which a menu that opens is looked for.
    for (const auto& item : cacheable)
        cacheMenuForMenuItem(*item);
}

std::vector<std::shared_ptr<MenuItem>> AppAccessibility::cacheableItems() {
    std::vector<std::shared_ptr<MenuItem>> items;
    if (!_showApplicationMenu)
        return items;
    std::ranges::copy_if(
        _menu->items(), std::back_inserter(items), [this](const auto& item) { return menuShouldBeCached(*item); });
    return items;
}

void AppAccessibility::showAppleMenuOrRemoveIt() {
    const auto apple = _menu->itemWithTitle(AppleTitle);
    if (!apple)
        return;
    if (_showAppleMenu)
        apple->setTitle(AppleMark);
    else
        _menu->removeItem(*apple);
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
    const ConversionOptions options{.foldAlternateItems = _foldAlternateItems, .keyEquivalents = _keyEquivalents};
    return {_platform.accessibility, _appAXUIElementRef, options, this, weak_from_this()};
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
    addRecentSelections(root, *_menu, _recentSelectionsList, name, [this](Menu& menu) { menuNeedsUpdate(menu); });
}

void AppAccessibility::updateRecentSelectionsListWithItem(MenuItem& /*item*/) {
    // Nothing is recorded: the list stays empty in this version.
}

} // namespace tarragon
