#include "panels/TarragonHackButton.h"

#include "mirror/MenuPresenter.h"
#include "panels/ButtonPanel.h"
#include "panels/TarragonPanelController.h"
#include "panels/TarragonPanelOwner.h"

#include <utility>

namespace tarragon {

namespace {

constexpr double Spacing = 45;
constexpr double Gap = 5;
constexpr Size InitialSize{40, 25};
constexpr double BottomInPanel = 3;
constexpr Size InitialSizeOnBar{40, 23};
constexpr double BottomOnBar = 1;
// How far below the buttons' bottom a menu opens.
constexpr double MenuDistance = 4;
constexpr double MenuDistanceOnBar = 1.75;

} // namespace

TarragonHackButton::TarragonHackButton(std::string title, const Rect& frame, const Surroundings& surroundings)
    : PanelButton(std::move(title), frame)
    , _services(surroundings.services)
    , _owner(surroundings.owner)
    , _controller(&surroundings.controller) { }

std::shared_ptr<TarragonHackButton> TarragonHackButton::initWithTitleWithPosition(
    std::string title, int position, const Surroundings& surroundings) {
    return std::shared_ptr<TarragonHackButton>(
        new TarragonHackButton(std::move(title), {{position * Spacing, BottomInPanel}, InitialSize}, surroundings));
}

std::shared_ptr<TarragonHackButton> TarragonHackButton::initWithTitleWithPositionByWidth(
    std::string title, double x, const Surroundings& surroundings) {
    return std::shared_ptr<TarragonHackButton>(
        new TarragonHackButton(std::move(title), {{x + Gap, BottomInPanel}, InitialSize}, surroundings));
}

std::shared_ptr<TarragonHackButton> TarragonHackButton::initForSTWithTitle(
    std::string title, double x, const Surroundings& surroundings) {
    return std::shared_ptr<TarragonHackButton>(
        new TarragonHackButton(std::move(title), {{x + Gap, BottomOnBar}, InitialSizeOnBar}, surroundings));
}

ButtonContent TarragonHackButton::content() const {
    ButtonContent content = PanelButton::content();
    content.mouseIsOver = _pointerIsInside;
    if (_keepButtonsAppleLike) {
        content.look = ButtonLook::MenuBar;
        content.font = {static_cast<double>(_fontSizeForAppleLike), _boldAppName};
        content.mouseIsOver = _mouseIsOver;
    } else if (_appleBar) {
        content.look = ButtonLook::ScreenTopBar;
        content.font = {0, _boldAppName};
    }
    return content;
}

void TarragonHackButton::mouseDown(const PanelMouseEvent& event) {
    if (event.controlKey) {
        _owner.popUpIgnoreMenu();
        return;
    }
    TarragonPanelController& controller = *_controller;
    if (controller.bShowing())
        return;
    controller.setBShowing(true);
    controller.setButtonShowingMenu(shared_from_this());
    showMenu();
}

void TarragonHackButton::rightMouseDown(const PanelMouseEvent& /*event*/) {
    _owner.popUpIgnoreMenu();
}

std::shared_ptr<Menu> TarragonHackButton::menuForEvent() {
    return _owner.contextMenu();
}

void TarragonHackButton::mouseEntered() {
    const auto self = shared_from_this(); // whatever a closing menu leads to
    TarragonPanelController& controller = *_controller;
    _mouseIsOver = true;
    _pointerIsInside = true;
    setNeedsDisplay();
    if (const auto showing = controller.buttonShowingMenu())
        showing->hideMenu();
    if (controller.buttonShowingMenu() != self)
        openInsteadOfOther();
}

void TarragonHackButton::openInsteadOfOther() {
    TarragonPanelController& controller = *_controller;
    const std::shared_ptr<TarragonHackButton> showing = controller.buttonShowingMenu();
    if (showing && showing->bShow()) {
        // A menu that is opened next closes the former one itself, so that the keyboard is ours all the time.
        if (_menu && controller.bShowing())
            showing->letGoOfMenu();
        else
            showing->closeMenu();
    }
    controller.setButtonShowingMenu(shared_from_this());
    if (controller.bShowing())
        showMenu();
}

void TarragonHackButton::mouseExited() {
    _mouseIsOver = false;
    setNeedsDisplay();
    mouseEntered();
    _pointerIsInside = false;
    setNeedsDisplay();
}

void TarragonHackButton::showMenu() {
    if (_bShow) {
        _controller->setBShowing(false);
        hideMenu();
        return;
    }
    _bShow = true;
    // A panel must not fade away under its open menu.
    if (!_appleBar && window())
        window()->setTempFadeEffect(false);
    popUp();
}

Point TarragonHackButton::menuLocationNS() const {
    const Point origin = window() ? window()->frame().origin : Point();
    const double distance = _appleBar ? MenuDistanceOnBar : MenuDistance;
    return {origin.x + frame().origin.x, origin.y - distance};
}

void TarragonHackButton::popUp() {
    // The menu of a bar lies above every other. A dock's does so anyway, and a dock has to stay one.
    if (_appleBar && window() && window()->level() != PanelLevel::Dock)
        window()->setLevel(PanelLevel::PopUpMenu);
    highlight(true);
    if (_menu)
        _services.menuPresenter.popUpMenu(_menu, menuLocationNS(), _controller->makeOpener(shared_from_this()));
    else
        menuHasClosed();
}

void TarragonHackButton::letGoOfMenu() {
    _bShow = false;
    highlight(false);
    if (!_appleBar && window())
        window()->setTempFadeEffect(true);
}

void TarragonHackButton::menuHasClosed() {
    if (!_bShow)
        return;
    _controller->setBShowing(false);
    letGoOfMenu();
}

void TarragonHackButton::hideMenu() {
    if (!_controller->bShowing())
        closeMenu();
}

void TarragonHackButton::closeMenu() {
    if (!_bShow)
        return;
    letGoOfMenu();
    _services.menuPresenter.closeMenus();
}

void TarragonHackButton::takeOverOpenMenu() {
    _bShow = true;
    highlight(true);
    if (!_appleBar && window())
        window()->setTempFadeEffect(false);
}

} // namespace tarragon
