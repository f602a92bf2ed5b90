#pragma once

#include "prefs/ignorelist/TableView.h"
#include "prefs/ignorelist/widgets/EntryTable.h"

#include <optional>

namespace tarragon {

class IdentifiedRows;

// A table on the screen for a controller that gives it its rows.
class RowTable : public EntryTable, public TableView {
    Q_OBJECT

public:
    using EntryTable::EntryTable;

    // Stays the caller's and outlives what is done with the table.
    void setRows(IdentifiedRows* rows);
    // As if the user had selected the row.
    void choose(std::size_t row);

    std::optional<std::size_t> selectedRow() const override { return _selectedRow; }
    void selectRow(std::optional<std::size_t> row) override;
    void reloadData() override;

signals:
    // The user has selected another row, or none.
    void rowSelected();
    void reloaded();

protected:
    void selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) override;

private:
    std::optional<std::size_t> shownSelection() const;
    void showSelection();

    IdentifiedRows* _rows = nullptr;
    std::optional<std::size_t> _selectedRow;
    bool _countsNewRows = false; // the selected row is one of those that the next reload brings
    bool _isChanging = false; // by us, not by the user
};

} // namespace tarragon
