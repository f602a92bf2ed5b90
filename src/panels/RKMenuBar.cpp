// How a bar comes to be, where it is, and when it hides itself.

#include "panels/RKMenuBar.h"

#include "mirror/Menu.h"
#include "panels/TarragonPanelController.h"
#include "panels/TarragonSTPanel.h"
#include "panels/rules/Measures.h"
#include "panels/rules/PanelPlacement.h"
#include "platform/Displays.h"
#include "platform/Log.h"
#include "platform/RunLoop.h"

#include <cmath>
#include <string>
#include <utility>

namespace tarragon {

namespace {

// For a screen that has just been attached.
constexpr double PauseAtInit = 1.0;

ZDGradientView barBackground() {
    ZDGradientView view;
    view.startingColor = {0.807, 1};
    view.endingColor = Grey{0.98, 1};
    view.angle = 90;
    view.showGradient = true;
    view.roundedCorners = false;
    return view;
}

std::string describePlace(int screen, const Rect& screenFrameNS) {
    std::string line = "bar of screen ";
    line += std::to_string(screen);
    line += ": ";
    line += std::to_string(std::lround(screenFrameNS.size.width));
    line += " wide, its top at ";
    line += std::to_string(std::lround(screenFrameNS.origin.x));
    line += ", ";
    line += std::to_string(std::lround(topNS(screenFrameNS)));
    return line;
}

} // namespace

RKMenuBar::RKMenuBar(const Surroundings& surroundings)
    : _surroundings(surroundings) {
    setupNotificationsToReceive();
    loadDefaults();
    updateAtInit();
    _surroundings.services.runLoop.pause(PauseAtInit);
}

RKMenuBar::~RKMenuBar() {
    for (const DefaultsObserver observer : _observers)
        _surroundings.defaults.removeObserver(observer);
    if (_mouseUpMonitor != 0)
        _surroundings.inputEvents->removeMonitor(_mouseUpMonitor);
    clearAll();
}

bool RKMenuBar::menuPopulated() const {
    return _menu && _menu->numberOfItems() > 0;
}

void RKMenuBar::setDisplayScreen(int index) {
    if (std::cmp_greater_equal(screenCount(), index))
        displayScreen = index;
}

std::size_t RKMenuBar::screenCount() const {
    return _surroundings.services.displays.screens().size();
}

Rect RKMenuBar::screenFrameNS() const {
    const std::vector<Screen> screens = _surroundings.services.displays.screens();
    const bool exists = displayScreen >= 0 && std::cmp_less(displayScreen, screens.size());
    return exists ? barScreenFrameNS(screens[static_cast<std::size_t>(displayScreen)]) : Rect();
}

// The window.

void RKMenuBar::setupScreentopTarragonPanel() {
    if (screenCount() < 2 || !_screenTopEnabled)
        return;
    if (!_tarragonSTPanel) {
        const Rect screenFrame = screenFrameNS();
        _screenTopLastScreenFrame = {{screenFrame.origin.x, 0}, screenFrame.size};
        _rectOfMenuBar = newBarFrameNS(screenFrame);
        _tarragonSTPanel = std::make_unique<TarragonSTPanel>(_surroundings.services, _rectOfMenuBar);
    }
    auto controller = std::make_unique<TarragonPanelController>(*_tarragonSTPanel);
    if (_tarragonSTPanelController)
        controller->takeOver(*_tarragonSTPanelController);
    _tarragonSTPanelController = std::move(controller);
    _tarragonSTPanel->setLevel(levelOfBar());
    _tarragonSTPanel->setAlphaValue(alphaOfNewBar(_screenTopTransparency));
}

PanelLevel RKMenuBar::levelOfBar() const {
    return _screenTopAutoHide ? PanelLevel::OrdinaryWindows : PanelLevel::Dock;
}

void RKMenuBar::addGradientScreenTop() {
    if (!_tarragonSTPanel) {
        setupScreentopTarragonPanel();
        addButtonsToScreentopTarragonPanel();
    }
    if (_tarragonSTPanel)
        _tarragonSTPanel->setContentView(barBackground());
}

void RKMenuBar::resetLevels() {
    if (_tarragonSTPanel)
        _tarragonSTPanel->setLevel(PanelLevel::OrdinaryWindows);
}

void RKMenuBar::refreshPanel() {
    if (!_screenTopEnabled)
        return;
    setupScreentopTarragonPanel();
    addButtonsToScreentopTarragonPanel();
}

Rect RKMenuBar::frameOfST() const {
    return _tarragonSTPanel ? _tarragonSTPanel->frame() : Rect();
}

void RKMenuBar::hideTarragonSTPanel() {
    if (_tarragonSTPanel)
        _tarragonSTPanel->orderOut();
}

void RKMenuBar::unhideTarragonSTPanel() {
    if (_tarragonSTPanel)
        _tarragonSTPanel->orderFrontRegardless();
}

void RKMenuBar::clearAll() {
    // The menu would be left without the bar that it belongs to.
    if (_tarragonSTPanelController)
        _tarragonSTPanelController->closeOpenMenu();
    hideTarragonSTPanel();
    _bunchButton = nullptr;
    _tarragonSTPanelController = nullptr;
    _tarragonSTPanel = nullptr;
}

bool RKMenuBar::checkIfMenuIsShowing() const {
    return _screenTopEnabled && menuIsOpen();
}

bool RKMenuBar::menuIsOpen() const {
    return _tarragonSTPanelController && _tarragonSTPanelController->bShowing();
}

// Its place.

void RKMenuBar::updateTarragonSTWindowPosition() {
    if (!_screenTopEnabled)
        return;
    if (screenCount() < 2) {
        clearAll();
        _unpluggedPreviously = true;
        return;
    }
    if (std::exchange(_unpluggedPreviously, false)) {
        refreshPanel();
        setupScreentopTarragonPanel();
        addButtonsToScreentopTarragonPanel();
        return;
    }
    const Rect screenFrame = screenFrameNS();
    if (std::exchange(_screenTopLastScreenFrame, screenFrame) != screenFrame)
        log(LogCategory::Panel, [&] { return describePlace(displayScreen, screenFrame); });
    // Whether the bar hides itself may have changed, and with it whether room is kept free for it. It is a dock in its
    // place alone, neither on the way there nor above the screen.
    if (_tarragonSTPanel && _screenTopAutoHide)
        _tarragonSTPanel->setLevel(levelOfBar());
    if (_tarragonSTPanel)
        _tarragonSTPanel->orderFrontRegardless();
    addGradientScreenTop();
    if (!_tarragonSTPanel)
        return;
    setBarFrame(placedBarFrameNS(screenFrame, _tarragonSTPanel->frame().size, _screenTopAutoHide, _screenTopSlidIn));
    _tarragonSTPanel->setLevel(levelOfBar());
    slideOutCheck();
    _tarragonSTPanel->setAlphaValue(alphaOfPlacedBar(_screenTopTransparency));
}

void RKMenuBar::slideOutCheck() {
    // Where the pointer is has to be asked for, which a bar that stays has no need of.
    if (!_screenTopAutoHide)
        return;
    const BarSlide slide = barSlide({.autoHides = _screenTopAutoHide,
        .slidIn = _screenTopSlidIn,
        .titleMenuIsShowing = menuIsOpen(),
        .halfHotZone = _screenTopHalfHotZone,
        .pointerNS = _surroundings.services.displays.mouseLocationNS(),
        .screenFrameNS = screenFrameNS(),
        .barFrameNS = frameOfST()});
    if (slide == BarSlide::In) {
        slideInScreenTopMenubar();
        _screenTopSlidIn = true;
    } else if (slide == BarSlide::Out) {
        slideOutScreenTopMenubar();
        _screenTopSlidIn = false;
    }
}

void RKMenuBar::slideOutScreenTopMenubar() {
    slide(BarSlide::Out);
}

void RKMenuBar::slideInScreenTopMenubar() {
    slide(BarSlide::In);
}

void RKMenuBar::slide(BarSlide slide) {
    if (!_tarragonSTPanel)
        return;
    const Rect frame = barFrameAfterSlideNS(_tarragonSTPanel->frame(), slide);
    // A bar that leaves is seen until it has left.
    if (slide == BarSlide::In)
        _tarragonSTPanel->setOutOfSight(false);
    _tarragonSTPanel->setFrameOriginAnimated(frame.origin, [this] { keepOffOtherScreens(); });
}

void RKMenuBar::setBarFrame(const Rect& frameNS) {
    _tarragonSTPanel->setFrame(frameNS);
    keepOffOtherScreens();
}

void RKMenuBar::keepOffOtherScreens() {
    const Rect& frame = _tarragonSTPanel->frame();
    const Rect screenFrame = screenFrameNS();
    // A window manager that is just taking over a dock may miss where it goes meanwhile, and leave it there for good.
    const bool isDockOutOfPlace = !_screenTopAutoHide && frame.origin.y >= topNS(screenFrame);
    _tarragonSTPanel->setOutOfSight(
        isDockOutOfPlace || isSeenAboveItsScreen(frame, screenFrame, _surroundings.services.displays.screens()));
}

Rect RKMenuBar::convertCGtoNSRectCoords(const Rect& rectCG) const {
    const std::vector<Screen> screens = _surroundings.services.displays.screens();
    const Rect first = screens.empty() ? Rect() : screens.front().frameNS;
    return tarragon::convertCGtoNSRectCoords(rectCG, first.origin.y + first.size.height);
}

Rect RKMenuBar::convertNSToCGRectCoords(const Rect& rectNS) const {
    const Rect bounds = _surroundings.services.displays.mainDisplayBoundsCG();
    return tarragon::convertNSToCGRectCoords(rectNS, bounds.origin.y + bounds.size.height);
}

// Installed without effect: what hears of the end of a drag may hook in here.
void RKMenuBar::mouseUpMonitor() {
    if (_surroundings.inputEvents && _mouseUpMonitor == 0)
        _mouseUpMonitor = _surroundings.inputEvents->addGlobalMonitor(
            inputEventMask(InputEventType::LeftMouseUp), [](const InputEvent&) {});
}

} // namespace tarragon
