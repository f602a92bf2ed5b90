#include "prefs/ignorelist/widgets/IdentifiedRows.h"

#include <algorithm>
#include <iterator>
#include <utility>

namespace tarragon {

int IdentifiedRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(_identities.size());
}

void IdentifiedRows::setIdentities(Identities identities) {
    const auto [oldBegin, newBegin] = std::ranges::mismatch(_identities, identities);
    const auto last = std::mismatch(std::make_reverse_iterator(_identities.end()), std::make_reverse_iterator(oldBegin),
        std::make_reverse_iterator(identities.end()), std::make_reverse_iterator(newBegin));
    const auto oldEnd = last.first.base();
    const auto newEnd = last.second.base();
    const auto begin = oldBegin - _identities.begin();

    if (oldEnd != oldBegin) {
        beginRemoveRows({}, static_cast<int>(begin), static_cast<int>(oldEnd - _identities.begin()) - 1);
        _identities.erase(oldBegin, oldEnd);
        endRemoveRows();
    }
    if (newEnd != newBegin) {
        beginInsertRows({}, static_cast<int>(begin), static_cast<int>(newEnd - identities.begin()) - 1);
        _identities.insert(_identities.begin() + begin, newBegin, newEnd);
        endInsertRows();
    }
}

void IdentifiedRows::moveToEnd(std::size_t row, std::string identity) {
    const int place = static_cast<int>(row);
    const int last = rowCount() - 1;
    const bool moves = beginMoveRows({}, place, place, {}, last + 1); // not where it is the last already
    const auto moved = _identities.begin() + place;
    std::rotate(moved, moved + 1, _identities.end());
    _identities.back() = std::move(identity);
    if (moves)
        endMoveRows();
    emit dataChanged(index(last), index(last));
}

void IdentifiedRows::replaceAll(Identities identities) {
    beginResetModel();
    _identities = std::move(identities);
    endResetModel();
}

} // namespace tarragon
