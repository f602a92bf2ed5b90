// How a bar shows the mirrored menu as a row of titles.

#include "panels/RKMenuBar.h"

#include "mirror/Menu.h"
#include "panels/TarragonHackButton.h"
#include "panels/TarragonPanelController.h"
#include "panels/TarragonSTPanel.h"
#include "panels/TitleRow.h"
#include "panels/rules/Measures.h"
#include "platform/Log.h"

#include <utility>

namespace tarragon {

MenuFont RKMenuBar::menuBarFont() const {
    return {static_cast<double>(_fontSizeSmall), false};
}

void RKMenuBar::updateAtInit() {
    if (_menu)
        _menu->setFont(menuBarFont());
}

void RKMenuBar::handleAppChange() {
    boldenAppTitleMenu();
    if (_menu)
        _menu->setFont(menuBarFont());
    if (!_screenTopEnabled || screenCount() < 2)
        return;
    addButtonsToScreentopTarragonPanel();
    updateTarragonSTWindowPosition();
}

void RKMenuBar::boldenAppTitleMenu() {
    if (!_menu)
        return;
    std::shared_ptr<MenuItem> item = _menu->itemWithTitle("Chrome");
    if (!item)
        item = _menu->itemWithTitle(_menu->title());
    if (item)
        item->setAttributedTitle(AttributedTitle{item->title(), {static_cast<double>(_fontSizeSmall), true}, 0});
}

// At the beginning of the row, as large as it is drawn.
std::shared_ptr<TarragonHackButton> RKMenuBar::makeTitle(const MenuItem& item) {
    const BarTitle shown = barTitle(item.title(), _menu->title());
    PanelServices& services = _surroundings.services;
    auto title = TarragonHackButton::initForSTWithTitle(
        shown.text, 0, {services, _surroundings.owner, *_tarragonSTPanelController});
    title->setAppleBar(true);
    title->setBoldAppName(shown.boldAppName);
    title->setMenu(item.submenu());
    if (item.hasSubmenu())
        item.submenu()->setFont(menuBarFont());
    applyStyle(_buttonStyle, *title);
    title->sizeToFit(services.toolkit);
    Rect frame = title->frame();
    frame.size.width = barTitleWidth(shown, frame.size.width);
    title->setFrame(frame);
    return title;
}

void RKMenuBar::addButtonsToScreentopTarragonPanel() {
    if (!_tarragonSTPanel)
        return;
    const PanelServices& services = _surroundings.services;
    _horizontalBunch = std::make_shared<Menu>("");
    _bunchButton =
        TarragonHackButton::initForSTWithTitle("", 0, {services, _surroundings.owner, *_tarragonSTPanelController});
    _bunchButton->setAppleBar(true);

    TitleRow row;
    if (_menu) {
        for (const auto& item : _menu->items()) {
            if (!item->isSeparatorItem())
                row.add(item, makeTitle(*item));
        }
    }
    const std::int32_t width = wholePoints(screenFrameNS().size.width);
    const BarLayout layout = layOutBar(width, row.widths());
    std::vector<std::shared_ptr<PanelButton>> subviews = row.lineUp(
        layout.positions, layout.firstInBunch, _bunchButton, _horizontalBunch, menuBarFont(), services.toolkit);
    Rect bunchFrame = _bunchButton->frame();
    bunchFrame.size.width = barBunchWidth(bunchFrame.origin.x, bunchFrame.size.width, width);
    _bunchButton->setFrame(bunchFrame);
    _tarragonSTPanel->setSubviews(std::move(subviews));
    _tarragonSTPanelController->takeOverOpenMenu();
    log(LogCategory::Panel, [this] {
        std::string line = "bar of screen ";
        line += std::to_string(displayScreen);
        line += ": ";
        line += _tarragonSTPanel->describeTitles();
        return line;
    });
    setBarFrame({_tarragonSTPanel->frame().origin, {static_cast<double>(width), ScreenTopBarHeight}});
    _tarragonSTPanel->orderFrontRegardless();
}

// The argument changes nothing, and neither does the operation: the titles of a bar have no gap between them.
void RKMenuBar::setSpacingBetweenSTPanelButtons(double /*spacing*/) {
    if (!_tarragonSTPanel)
        return;
    for (const auto& title : _tarragonSTPanel->subviews())
        title->setFrame(Rect(title->frame()));
}

void RKMenuBar::applyStyle(std::int64_t style, PanelButton& button) const {
    button.setDress(applyStyleOnBar(style, button.dress()));
}

std::shared_ptr<Menu> RKMenuBar::addTarragonMenuToMenu() {
    return _surroundings.owner.addTarragonMenuToMenu();
}

} // namespace tarragon
