#include "fake/FakeLoginItemList.h"

#include <algorithm>

namespace tarragon {

void FakeLoginItemList::add(std::optional<std::string> displayName, std::optional<std::string> path, bool isHidden) {
    _items.push_back({std::to_string(_nextReference++), std::move(displayName), std::move(path), isHidden});
}

std::optional<std::vector<LoginItem>> FakeLoginItemList::copySnapshot() {
    return _available ? std::optional(_items) : std::nullopt;
}

bool FakeLoginItemList::insertItem(const std::string& path, bool isHidden) {
    ++_insertCount;
    if (!_available || !_writable)
        return false;
    add(path.substr(path.rfind('/') + 1), path, isHidden);
    return true;
}

bool FakeLoginItemList::removeItem(const LoginItem& item) {
    ++_removeCount;
    return _available && _writable
        && std::erase_if(_items, [&item](const LoginItem& other) { return other.reference == item.reference; }) > 0;
}

} // namespace tarragon
