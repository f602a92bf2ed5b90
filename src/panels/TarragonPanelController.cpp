#include "panels/TarragonPanelController.h"

#include "panels/ButtonPanel.h"
#include "panels/TarragonHackButton.h"

#include <algorithm>
#include <utility>
#include <vector>

namespace tarragon {

class TarragonPanelController::Opener : public MenuOpener {
public:
    Opener(TarragonPanelController& controller, std::shared_ptr<TarragonHackButton> button)
        : _controller(&controller)
        , _button(std::move(button)) { }

    const std::shared_ptr<TarragonHackButton>& button() const { return _button; }
    void setButton(std::shared_ptr<TarragonHackButton> button) { _button = std::move(button); }

    void setController(TarragonPanelController& controller) {
        _controller = &controller;
        _button->setController(controller);
    }

    void menuHasClosed() override { _button->menuHasClosed(); }
    void moveToNeighbour(MenuNeighbour neighbour) override { _controller->openNeighbour(*_button, neighbour); }

private:
    TarragonPanelController* _controller; // which keeps this object
    std::shared_ptr<TarragonHackButton> _button;
};

TarragonPanelController::~TarragonPanelController() = default;

void TarragonPanelController::takeOver(TarragonPanelController& former) {
    _bShowing = std::exchange(former._bShowing, false);
    _buttonShowingMenu = std::exchange(former._buttonShowingMenu, nullptr);
    _opener = std::exchange(former._opener, nullptr);
    if (_buttonShowingMenu)
        _buttonShowingMenu->setController(*this);
    // Its title may be one of a former layout.
    if (_opener)
        _opener->setController(*this);
    for (const auto& subview : _window.subviews()) {
        if (const auto title = std::dynamic_pointer_cast<TarragonHackButton>(subview))
            title->setController(*this);
    }
}

std::shared_ptr<MenuOpener> TarragonPanelController::makeOpener(const std::shared_ptr<TarragonHackButton>& button) {
    _opener = std::make_shared<Opener>(*this, button);
    return _opener;
}

void TarragonPanelController::takeOverOpenMenu() {
    const std::shared_ptr<TarragonHackButton> former = _opener ? _opener->button() : nullptr;
    if (!former || !former->bShow())
        return;
    for (const auto& subview : _window.subviews()) {
        const auto button = std::dynamic_pointer_cast<TarragonHackButton>(subview);
        if (!button || button->menu() != former->menu())
            continue;
        _opener->setButton(button);
        _buttonShowingMenu = button;
        button->takeOverOpenMenu();
        return;
    }
    closeOpenMenu();
}

void TarragonPanelController::closeOpenMenu() {
    const std::shared_ptr<TarragonHackButton> button = _opener ? _opener->button() : nullptr;
    if (!button || !button->bShow())
        return;
    _bShowing = false;
    button->closeMenu();
}

void TarragonPanelController::openNeighbour(const TarragonHackButton& button, MenuNeighbour neighbour) {
    std::vector<std::shared_ptr<TarragonHackButton>> titles;
    std::ptrdiff_t current = -1;
    for (const auto& subview : _window.subviews()) {
        auto title = std::dynamic_pointer_cast<TarragonHackButton>(subview);
        if (!title || !title->menu())
            continue;
        if (title.get() == &button)
            current = std::ssize(titles);
        titles.push_back(std::move(title));
    }
    if (current < 0 || titles.size() < 2)
        return;
    const std::ptrdiff_t step = neighbour == MenuNeighbour::Left ? -1 : 1;
    titles[static_cast<std::size_t>((current + step + std::ssize(titles)) % std::ssize(titles))]->openInsteadOfOther();
}

} // namespace tarragon
