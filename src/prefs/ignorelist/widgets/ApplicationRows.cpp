#include "prefs/ignorelist/widgets/ApplicationRows.h"

#include "prefs/ignorelist/widgets/LineOfText.h"

namespace tarragon {

ApplicationRows::ApplicationRows(const MasterTableViewController& controller, ApplicationIcons& icons, QObject* parent)
    : IdentifiedRows(parent)
    , _controller(controller)
    , _icons(icons) { }

bool ApplicationRows::reload() {
    Identities keys = _controller.ignoreDictionary()->allKeys();
    _names.assign(keys.size(), std::nullopt);
    setIdentities(std::move(keys));
    if (rowCount() > 0)
        emit dataChanged(index(0), index(rowCount() - 1)); // an application that stays may have another name
    return true;
}

QString ApplicationRows::nameAt(std::size_t row) const {
    if (row >= _names.size())
        return {};
    if (!_names[row])
        _names[row] = oneLineText(_controller.tableViewObjectValueForTableColumn(row));
    return *_names[row];
}

QVariant ApplicationRows::data(const QModelIndex& index, int role) const {
    const auto row = static_cast<std::size_t>(index.row());
    if (row >= identities().size()) // nor has an index without a row
        return {};
    switch (role) {
    case Qt::DisplayRole:
        return nameAt(row);
    case Qt::DecorationRole:
        return _icons.iconOfBundle(identities()[row]);
    case Qt::ToolTipRole: {
        const QString key = oneLineText(identities()[row]);
        return toolTipOfText(nameAt(row) == key ? key : nameAt(row) + '\n' + key);
    }
    default:
        return {};
    }
}

} // namespace tarragon
