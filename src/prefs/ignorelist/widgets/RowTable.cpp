#include "prefs/ignorelist/widgets/RowTable.h"

#include "prefs/ignorelist/widgets/IdentifiedRows.h"

#include <QScopedValueRollback>

namespace tarragon {

void RowTable::setRows(IdentifiedRows* rows) {
    const QScopedValueRollback changing(_isChanging, true);
    _rows = rows;
    _selectedRow.reset();
    setModel(rows);
}

void RowTable::choose(std::size_t row) {
    if (_rows)
        setCurrentIndex(_rows->index(static_cast<int>(row)));
}

void RowTable::selectRow(std::optional<std::size_t> row) {
    _selectedRow = row;
    _countsNewRows = true;
    showSelection();
}

void RowTable::reloadData() {
    if (!_rows)
        return;
    const std::optional<std::size_t> before = shownSelection(); // what is to be selected may be known already
    {
        const QScopedValueRollback changing(_isChanging, true);
        const bool haveMeaning = _rows->reload();
        // The selection has moved along with its row. Where the row is gone, the one in its place is selected.
        if (!_countsNewRows && _selectedRow)
            _selectedRow = haveMeaning ? shownSelection() : std::nullopt;
        _countsNewRows = false;
        if (_selectedRow && *_selectedRow >= static_cast<std::size_t>(_rows->rowCount()))
            _selectedRow.reset();
    }
    showSelection();
    if (_selectedRow && _selectedRow != before)
        scrollTo(_rows->index(static_cast<int>(*_selectedRow)));
    emit reloaded();
}

std::optional<std::size_t> RowTable::shownSelection() const {
    const QModelIndexList rows = selectionModel()->selectedRows();
    return rows.isEmpty() ? std::nullopt : std::optional(static_cast<std::size_t>(rows.first().row()));
}

void RowTable::showSelection() {
    if (!_rows)
        return;
    const QScopedValueRollback changing(_isChanging, true);
    if (!_selectedRow)
        clearSelection();
    else if (*_selectedRow < static_cast<std::size_t>(_rows->rowCount()))
        setCurrentIndex(_rows->index(static_cast<int>(*_selectedRow)));
}

void RowTable::selectionChanged(const QItemSelection& selected, const QItemSelection& deselected) {
    EntryTable::selectionChanged(selected, deselected);
    if (_isChanging)
        return;
    _selectedRow = shownSelection();
    _countsNewRows = false;
    emit rowSelected();
}

} // namespace tarragon
