// How the controller makes the floating panel and fills it with buttons.

#include "app/AppController.h"

#include "mirror/ZDScreenTools.h"
#include "panels/TarragonButton.h"
#include "panels/TarragonPanel.h"
#include "panels/TarragonPanelController.h"
#include "panels/TitleRow.h"
#include "panels/rules/HorizontalLayout.h"
#include "panels/rules/Measures.h"
#include "platform/Log.h"
#include "platform/PreferenceKeys.h"

#include <algorithm>
#include <memory>
#include <string>
#include <utility>
#include <variant>

namespace tarragon {

namespace {

// The style whose buttons draw themselves.
bool isMenuBarLook(std::int64_t style) {
    return style == MenuBarLook;
}

} // namespace

void AppController::setupPanel() {
    if (_preferences._horizontal) {
        setupHorizontalTarragonPanel();
        addButtonsToHorizontalTarragonPanel();
    } else {
        setupTarragonPanel();
    }
    // A vertical one at once as well: the place where it is made is not quite that where it stays.
    if (_appUIElementInfo)
        updateTarragonWindowPositionWithPoint(_appUIElementInfo->focusedWindowPositionCG());
}

void AppController::refreshPanel() {
    dropPanel();
    if (_preferences._horizontal) {
        setupHorizontalTarragonPanel();
        // The single button until the titles are laid out next, on purpose.
        addButtonsToTarragonPanel();
    } else {
        setupTarragonPanel();
    }
}

void AppController::dropPanel() {
    // The application may have ended under its open menu.
    if (_tarragonPanelController)
        _tarragonPanelController->closeOpenMenu();
    if (_tarragonPanel)
        _tarragonPanel->orderOut();
    _bunchButton = nullptr;
    _tarragonPanelController = nullptr;
    _tarragonPanel = nullptr;
}

// For a change that shows in the panel.
void AppController::rebuildPanel() {
    // Nothing else would take away a panel that is no longer wanted.
    if (!_preferences._enableButton)
        dropPanel();
    if (_preferences._horizontal) {
        setupHorizontalTarragonPanel();
        addButtonsToHorizontalTarragonPanel();
    }
    if (!_preferences._horizontal)
        setupTarragonPanel();
}

// Once the mirror is that of another application or was read anew.
void AppController::buildAndPlacePanel() {
    setupPanel();
    if (_tarragonPanel)
        _tarragonPanel->setShouldRedoInitials(true);
}

void AppController::setupTarragonPanel() {
    if (!_preferences._enableButton)
        return;
    if (!_tarragonPanel) {
        const Point position = _appUIElementInfo ? _appUIElementInfo->focusedWindowPositionCG() : Point();
        const auto screen = ZDScreenTools::screenWithMousePointer(_platform.displays);
        const double screenHeight = screen ? screen->frameNS.size.height : 0;
        _tarragonPanel = std::make_unique<TarragonPanel>(_panelServices,
            verticalPanelFrameNS(position, screenHeight, primaryScreenHeight(), _preferences._tarragonAlwaysRight));
    }
    _tarragonPanel->setShowGradient(false);
    _tarragonPanel->setAppAccess(_appUIElementInfo);
    _tarragonPanel->setLevel(PanelLevel::FrontWindow);
    addButtonsToTarragonPanel();
    if (_preferences._tarragonAlwaysVisible) {
        _tarragonPanel->setAlphaValue(1);
        _tarragonPanel->setFadeEffect(false);
    } else {
        _tarragonPanel->setFadeEffect(true);
    }
    if (!_preferences._showOnPrimaryScreen && windowIsOnFirstScreen())
        hideTarragonPanel();
}

void AppController::setupHorizontalTarragonPanel() {
    if (!_preferences._enableButton)
        return;
    if (!_tarragonPanel) {
        if (_appUIElementInfo)
            _appUIElementInfo->appendAuxiliaryMenuTo(*_appUIElementInfo->menu());
        const Point position = _appUIElementInfo ? _appUIElementInfo->focusedWindowPositionCG() : Point();
        const double screenHeight = _appUIElementInfo ? _appUIElementInfo->focusedWindowScreenRectCG().size.height : 0;
        _tarragonPanel = std::make_unique<TarragonPanel>(_panelServices,
            convertCGtoNSRectCoords(
                horizontalPanelRect(position, screenHeight, primaryScreenHeight(), _preferences._tarragonAlwaysRight)));
    }
    _tarragonPanel->setTempFadeEffect(true);
    // One for the life of the panel: titles of the former layout, and a menu that is open, still refer to it.
    if (!_tarragonPanelController) {
        _tarragonPanelController = std::make_unique<TarragonPanelController>(*_tarragonPanel);
        _tarragonPanel->setWindowController(_tarragonPanelController.get());
    }
    _tarragonPanel->setLevel(PanelLevel::FrontWindow);
    _tarragonPanel->setAppAccess(_appUIElementInfo);
    if (_preferences._tarragonAlwaysVisible) {
        _tarragonPanel->setAlphaValue(1);
        _tarragonPanel->setFadeEffect(false);
    } else {
        _tarragonPanel->setAlphaValue(0);
        _tarragonPanel->setFadeEffect(true);
    }
    _lastPanelPoint = _tarragonPanel->frame().origin;
}

void AppController::addButtonsToTarragonPanel() {
    if (!_tarragonPanel)
        return;
    _tarragonPanel->setAlphaValue(0);
    TarragonPanelOwner& owner = *this;
    const auto button = std::make_shared<TarragonButton>("Menu", 0, owner, _panelServices.toolkit);
    button->sizeToFit(_panelServices.toolkit);
    const auto label = _platform.defaults.value(preference::ButtonLabel);
    const auto* text = label ? std::get_if<std::string>(&*label) : nullptr;
    button->setTitle(text ? *text : std::string());
    applyStyle(_preferences._buttonStyle, *button);
    // A label that is longer than usual is shown whole.
    Rect frame = _tarragonPanel->frame();
    frame.size.width = std::max(frame.size.width, button->frame().origin.x + button->frame().size.width);
    _tarragonPanel->setFrame(frame);
    _tarragonPanel->setSubviews({button});
    if (_preferences._tarragonAlwaysVisible) {
        _alreadyFadedOut = false;
        _tarragonPanel->fadeIntoView();
    } else {
        _alreadyFadedOut = true;
        _tarragonPanel->fadeOutOfView();
    }
}

TarragonHackButton::Surroundings AppController::titleSurroundings() {
    return {_panelServices, *this, *_tarragonPanelController};
}

// A title as it stands in the row, dressed and as large as it is drawn.
std::shared_ptr<TarragonHackButton> AppController::makeTitle(const MenuItem& item, double x) {
    auto title = TarragonHackButton::initWithTitleWithPositionByWidth(item.title(), x, titleSurroundings());
    title->setMenu(item.submenu());
    if (item.hasSubmenu())
        item.submenu()->setFont(menuBarFont());
    PanelToolkit& toolkit = _panelServices.toolkit;
    dressTitle(*title);
    title->sizeToFit(toolkit);
    const bool isApplication = item.title() == _appUIElementInfo->currentAppName();
    if (isMenuBarLook(_preferences._buttonStyle)) {
        Rect frame = title->frame();
        frame.size.width += MenuBarLookExtraWidth;
        title->setFrame(frame);
    } else if (isApplication) {
        title->setFont(titleFont(title->title()));
        title->sizeToFit(toolkit);
    }
    return title;
}

void AppController::dressTitle(TarragonHackButton& title) {
    const bool menuBarLook = isMenuBarLook(_preferences._buttonStyle);
    title.setKeepButtonsAppleLike(menuBarLook);
    if (menuBarLook)
        title.setFontSizeForAppleLike(MenuBarLookFontSize);
    else
        applyStyle(_preferences._buttonStyle, title);
}

void AppController::addButtonsToHorizontalTarragonPanel() {
    const std::int32_t width =
        _appUIElementInfo ? wholePoints(_appUIElementInfo->focusedWindowFrameCG().size.width) : 0;
    _lastWidth = width;
    if (!_tarragonPanel || !_tarragonPanelController || !_appUIElementInfo)
        return;
    _tarragonPanel->setAlphaValue(0);
    _horizontalBunch = std::make_shared<Menu>("");
    _bunchButton =
        TarragonHackButton::initWithTitleWithPositionByWidth("", bunchButtonPosition(width), titleSurroundings());
    dressTitle(*_bunchButton);

    TitleRow row;
    for (const auto& item : _appUIElementInfo->menu()->items()) {
        if (!item->isSeparatorItem())
            row.add(item, makeTitle(*item, 0));
    }
    const HorizontalLayout layout =
        layOutHorizontally(width, row.widths(), {_preferences._tarragonAlwaysRight, _tempAboveTrafficLights});
    _preferences._tarragonAlwaysRight = layout.settings.tarragonAlwaysRight;
    _tempAboveTrafficLights = layout.settings.tempAboveTrafficLights;
    _tarragonPanel->setSubviews(row.lineUp(
        layout.positions, layout.firstInBunch, _bunchButton, _horizontalBunch, menuBarFont(), _panelServices.toolkit));
    _tarragonPanelController->takeOverOpenMenu();
    log(LogCategory::Panel, [this] { return _tarragonPanel->describeTitles(); });
    const Point origin = _tarragonPanel->frame().origin;
    _tarragonPanel->setFrameAnimated({origin, {static_cast<double>(width), HorizontalPanelHeight}});

    // Nor is it shown for a moment where the close check is about to take it away.
    _comesBack = _preferences._enableButton && (windowIsIgnored() || windowIsTooCloseToTop());
    if (_comesBack) {
        fadeOutOnce();
    } else if (_preferences._tarragonAlwaysVisible) {
        _alreadyFadedOut = false;
        _tarragonPanel->fadeIntoView();
        _tarragonPanel->orderFrontRegardless();
    }
}

void AppController::changeToButtonTGMenuFont() {
    if (_appUIElementInfo && _appUIElementInfo->auxiliaryMenu())
        _appUIElementInfo->auxiliaryMenu()->setFont(menuBarFont());
}

MenuFont AppController::menuBarFont() const {
    return {static_cast<double>(_preferences._fontSizeSmall), false};
}

// Half a point smaller than the titles of windows; bold for the application's own menu.
MenuFont AppController::titleFont(const std::string& title) {
    const double size = _panelServices.toolkit.titleBarFontSize(_preferences._titleFontSizeSmall) - 0.5;
    return {size, _appUIElementInfo && title == _appUIElementInfo->currentAppName()};
}

void AppController::applyStyle(std::int64_t style, PanelButton& button) {
    button.setDress(tarragon::applyStyle(style, button.dress()));
    button.setFont(titleFont(button.title()));
    button.sizeToFit(_panelServices.toolkit);
    const Size growth = growthOf(button.dress());
    Rect frame = button.frame();
    frame.size = {frame.size.width + growth.width, frame.size.height + growth.height};
    button.setFrame(frame);
}

void AppController::applyStyleToAllButtonsInPanel(std::int64_t style) {
    if (!_tarragonPanel)
        return;
    for (const auto& subview : _tarragonPanel->subviews()) {
        if (auto* title = dynamic_cast<TarragonHackButton*>(subview.get())) {
            title->setKeepButtonsAppleLike(isMenuBarLook(style));
            if (isMenuBarLook(style))
                title->setFontSizeForAppleLike(MenuBarLookFontSize);
        }
        if (auto* single = dynamic_cast<TarragonButton*>(subview.get()))
            single->setKeepButtonsAppleLike(isMenuBarLook(style));
        if (!isMenuBarLook(style))
            applyStyle(style, *subview);
    }
    _tarragonPanel->display();
}

void AppController::setSpacingBetweenButtons(double /*spacing*/) {
    constexpr double Step = 5;
    if (!_tarragonPanel)
        return;
    for (const auto& subview : _tarragonPanel->subviews())
        subview->setFrameOrigin({subview->frame().origin.x + Step, subview->frame().origin.y});
    _tarragonPanel->display();
}

} // namespace tarragon
