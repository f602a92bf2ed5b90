#include "prefs/ignorelist/widgets/TitleRows.h"

#include "platform/Texts.h"
#include "prefs/ignorelist/widgets/LineOfText.h"

#include <QFont>
#include <QScopedValueRollback>

#include <utility>

namespace tarragon {

TitleRows::TitleRows(DetailTableViewController& controller, QObject* parent)
    : IdentifiedRows(parent)
    , _controller(controller) { }

bool TitleRows::reload() {
    const QScopedValueRollback reloading(_isReloading, true);
    Identities titles;
    titles.reserve(_controller.numberOfRowsInTableView());
    for (std::size_t row = 0; row < _controller.numberOfRowsInTableView(); ++row)
        titles.push_back(_controller.tableViewObjectValueForTableColumn(row));
    const std::string key = _controller.blackList() ? _controller.masterKey() : std::string();
    const bool isSameApplication = key == _masterKey;
    _masterKey = key;
    const std::optional<Edit> edit = std::exchange(_edit, std::nullopt);
    if (edit && haveOnlyMoved(titles, *edit))
        moveToEnd(edit->row, edit->value);
    else if (isSameApplication)
        setIdentities(std::move(titles));
    else
        replaceAll(std::move(titles));
    return isSameApplication;
}

bool TitleRows::haveOnlyMoved(const Identities& titles, const Edit& edit) const {
    Identities expected = identities();
    expected.erase(expected.begin() + static_cast<std::ptrdiff_t>(edit.row));
    expected.push_back(edit.value);
    return titles == expected;
}

QVariant TitleRows::data(const QModelIndex& index, int role) const {
    const auto row = static_cast<std::size_t>(index.row());
    if (row >= identities().size()) // nor has an index without a row
        return {};
    const std::string& title = identities()[row];
    switch (role) {
    case Qt::EditRole:
        return QString::fromStdString(title);
    case Qt::DisplayRole:
        return title.empty() ? QString::fromStdString(translated("IgnoreListView", "(empty title)"))
                             : oneLineText(title);
    case Qt::ToolTipRole:
        return title.empty() ? QVariant() : toolTipOfText(oneLineText(title));
    case Qt::FontRole: {
        QFont font;
        font.setItalic(title.empty());
        return title.empty() ? QVariant(font) : QVariant();
    }
    default:
        return {};
    }
}

bool TitleRows::setData(const QModelIndex& index, const QVariant& value, int role) {
    // A row that goes away while it is edited is not one that the user has finished editing.
    if (_isReloading || role != Qt::EditRole || !index.isValid())
        return false;
    _edit = {static_cast<std::size_t>(index.row()), value.toString().toStdString()};
    _controller.tableViewSetObjectValue(std::string(_edit->value), _edit->row);
    _edit.reset();
    return true;
}

Qt::ItemFlags TitleRows::flags(const QModelIndex& index) const {
    return IdentifiedRows::flags(index) | (index.isValid() ? Qt::ItemIsEditable : Qt::NoItemFlags);
}

} // namespace tarragon
