#pragma once

#include "mirror/Menu.h"
#include "panels/TarragonHackButton.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <optional>
#include <vector>

namespace tarragon {

// The titles of a menu beside each other, in a panel or a bar, and the bunch button, whose menu takes those that find
// no room.
class TitleRow {
public:
    // The title on the button of a menu of those that find no room.
    static constexpr const char* OverflowTitle = "\xE2\x96\xBF"; // U+25BF

    // The next one to the right. The title is at the beginning of the row still, and as large as it is drawn.
    void add(std::shared_ptr<MenuItem> item, std::shared_ptr<TarragonHackButton> title);
    // In points, of every title.
    [[nodiscard]] std::vector<double> widths() const;

    // Moves the titles right by their positions, and puts copies of the items from firstInBunch on, if any, into the
    // bunch, the menu of the bunch button, whose items get the font. Answers what is shown, left to right. Of two or
    // more, the bunch button is placed by the last but one, whether it is shown itself or not.
    [[nodiscard]] std::vector<std::shared_ptr<PanelButton>> lineUp(const std::vector<std::int32_t>& positions,
        const std::optional<std::size_t>& firstInBunch, const std::shared_ptr<TarragonHackButton>& bunchButton,
        const std::shared_ptr<Menu>& bunch, const MenuFont& font, PanelToolkit& toolkit) const;

private:
    struct Entry {
        std::shared_ptr<MenuItem> item;
        std::shared_ptr<TarragonHackButton> title;
    };
    std::vector<Entry> _entries;
};

} // namespace tarragon
