#include "panels/TarragonButton.h"

#include "panels/TarragonPanelOwner.h"

#include <utility>

namespace tarragon {

namespace {

constexpr double Spacing = 55;
constexpr Size InitialSize{40, 21};
// Room around the title beyond what it needs.
constexpr Size Margin{5, 10};

} // namespace

TarragonButton::TarragonButton(std::string title, int position, TarragonPanelOwner& owner, PanelToolkit& toolkit)
    : PanelButton(std::move(title), {{position * Spacing, 0}, InitialSize})
    , _owner(owner) {
    sizeToFit(toolkit);
    const Rect fitting = frame();
    setFrame({fitting.origin, {fitting.size.width + Margin.width, fitting.size.height + Margin.height}});
}

void TarragonButton::mouseDown(const PanelMouseEvent& event) {
    if (event.controlKey)
        _owner.popUpIgnoreMenu();
    else
        _owner.popUpMenu();
}

void TarragonButton::rightMouseDown(const PanelMouseEvent& /*event*/) {
    _owner.popUpIgnoreMenu();
}

} // namespace tarragon
