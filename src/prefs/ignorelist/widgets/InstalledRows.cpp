#include "prefs/ignorelist/widgets/InstalledRows.h"

#include "prefs/ignorelist/BundleName.h"
#include "prefs/ignorelist/widgets/LineOfText.h"

#include <QCollator>

#include <algorithm>
#include <utility>

namespace tarragon {

InstalledRows::InstalledRows(const std::vector<ApplicationBundle>& bundles, ApplicationIcons& icons, QObject* parent)
    : QAbstractListModel(parent)
    , _icons(icons) {
    for (const ApplicationBundle& bundle : bundles) {
        const std::string name = nameOfBundle(bundle);
        if (bundle.bundleIdentifier.empty() || name == UnknownApplicationName)
            continue;
        const QString shown = oneLineText(name.empty() ? bundle.bundleIdentifier : name);
        QStringList searched{shown};
        for (const std::optional<std::string>& also : {bundle.name, bundle.executable})
            searched.append(QString::fromStdString(also.value_or(std::string())));
        searched.append(QString::fromStdString(bundle.bundleIdentifier));
        _all.push_back({shown, searched.join('\n'), bundle});
    }
    QCollator collator;
    collator.setCaseSensitivity(Qt::CaseInsensitive);
    collator.setNumericMode(true);
    std::ranges::stable_sort(
        _all, [&collator](const Row& one, const Row& other) { return collator.compare(one.name, other.name) < 0; });
    setSearchText({});
}

void InstalledRows::setSearchText(const QString& text) {
    const QStringList words = text.simplified().split(' ', Qt::SkipEmptyParts);
    beginResetModel();
    _shown.clear();
    for (std::size_t place = 0; place < _all.size(); ++place) {
        const QString& searched = _all[place].searched;
        if (std::ranges::all_of(
                words, [&searched](const QString& word) { return searched.contains(word, Qt::CaseInsensitive); }))
            _shown.push_back(place);
    }
    endResetModel();
}

std::string InstalledRows::pathAt(int row) const {
    return _all[_shown[static_cast<std::size_t>(row)]].bundle.path;
}

int InstalledRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(_shown.size());
}

QVariant InstalledRows::data(const QModelIndex& index, int role) const {
    if (!index.isValid())
        return {};
    const Row& row = _all[_shown[static_cast<std::size_t>(index.row())]];
    switch (role) {
    case Qt::DisplayRole:
        return row.name;
    case Qt::DecorationRole:
        return _icons.icon(row.bundle.icon);
    case Qt::ToolTipRole:
        return toolTipOfText(row.name + '\n' + oneLineText(row.bundle.bundleIdentifier));
    default:
        return {};
    }
}

} // namespace tarragon
