#pragma once

#include <cstddef>
#include <optional>

namespace tarragon {

// A table on the screen, as those see it who give it its rows. One row at most is selected.
class TableView {
public:
    virtual ~TableView() = default;

    // Counted as the rows are now, shown or not yet; nothing when none is selected.
    virtual std::optional<std::size_t> selectedRow() const = 0;
    // Nothing for no row. Nobody is told of the change, unlike when the user selects.
    virtual void selectRow(std::optional<std::size_t> row) = 0;
    // Asks for all rows anew.
    virtual void reloadData() = 0;
};

} // namespace tarragon
