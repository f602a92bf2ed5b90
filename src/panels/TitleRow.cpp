#include "panels/TitleRow.h"

#include "panels/rules/HorizontalLayout.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tarragon {

void TitleRow::add(std::shared_ptr<MenuItem> item, std::shared_ptr<TarragonHackButton> title) {
    _entries.push_back({std::move(item), std::move(title)});
}

std::vector<double> TitleRow::widths() const {
    std::vector<double> widths;
    std::ranges::transform(
        _entries, std::back_inserter(widths), [](const Entry& entry) { return entry.title->frame().size.width; });
    return widths;
}

std::vector<std::shared_ptr<PanelButton>> TitleRow::lineUp(const std::vector<std::int32_t>& positions,
    const std::optional<std::size_t>& firstInBunch, const std::shared_ptr<TarragonHackButton>& bunchButton,
    const std::shared_ptr<Menu>& bunch, const MenuFont& font, PanelToolkit& toolkit) const {
    std::vector<std::shared_ptr<PanelButton>> shown;
    for (std::size_t i = 0; i < positions.size(); ++i) {
        const auto& title = _entries[i].title;
        const Point made = title->frame().origin;
        title->setFrameOrigin({made.x + positions[i], made.y});
        shown.push_back(title);
    }
    if (firstInBunch) {
        for (std::size_t i = *firstInBunch; i < _entries.size(); ++i)
            bunch->addItem(_entries[i].item->copy());
        bunch->setFont(font);
        bunchButton->setTitle(OverflowTitle);
        bunchButton->setMenu(bunch);
        bunchButton->sizeToFit(toolkit);
        shown.push_back(bunchButton);
    }
    if (shown.size() >= 2)
        bunchButton->setFrameOrigin(bunchButtonOrigin(shown[shown.size() - 2]->frame()));
    return shown;
}

} // namespace tarragon
