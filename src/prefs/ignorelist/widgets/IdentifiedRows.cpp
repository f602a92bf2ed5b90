#include "prefs/ignorelist/widgets/IdentifiedRows.h"

#include <algorithm>
#include <utility>

namespace tarragon {

int IdentifiedRows::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(_identities.size());
}

void IdentifiedRows::setIdentities(Identities identities) {
    const auto first = std::ranges::mismatch(_identities, identities);
    const auto begin = first.in1 - _identities.begin();
    const std::ranges::subrange oldRest(first.in1, _identities.end());
    const std::ranges::subrange newRest(first.in2, identities.end());
    const auto last =
        std::mismatch(std::make_reverse_iterator(oldRest.end()), std::make_reverse_iterator(oldRest.begin()),
            std::make_reverse_iterator(newRest.end()), std::make_reverse_iterator(newRest.begin()));
    const auto oldEnd = last.first.base();
    const auto newEnd = last.second.base();

    if (oldEnd != oldRest.begin()) {
        beginRemoveRows({}, static_cast<int>(begin), static_cast<int>(oldEnd - _identities.begin()) - 1);
        _identities.erase(oldRest.begin(), oldEnd);
        endRemoveRows();
    }
    if (newEnd != newRest.begin()) {
        beginInsertRows({}, static_cast<int>(begin), static_cast<int>(newEnd - identities.begin()) - 1);
        _identities.insert(_identities.begin() + begin, newRest.begin(), newEnd);
        endInsertRows();
    }
}

void IdentifiedRows::moveToEnd(std::size_t row, std::string identity) {
    const int place = static_cast<int>(row);
    const int last = rowCount() - 1;
    const bool moves = place < last && beginMoveRows({}, place, place, {}, last + 1);
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
