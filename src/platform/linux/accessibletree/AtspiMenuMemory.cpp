#include "platform/linux/accessibletree/AtspiMenuMemory.h"

#include <utility>

namespace tarragon {

namespace {

// With longer menus the one wait that this saves hardly counts.
constexpr std::size_t LongestMenu = 200;
// The menus of some applications. One that is in use is read again soon.
constexpr std::size_t MostItems = 2000;

} // namespace

AtspiNodes::Wanted AtspiMenuMemory::itemsOf(const AtspiReference& menu) const {
    const std::lock_guard lock(_mutex);
    const auto found = _items.find(menu);
    return found != _items.end() ? found->second : AtspiNodes::Wanted{};
}

void AtspiMenuMemory::remember(const AtspiReference& menu, AtspiNodes::Wanted items) {
    const std::lock_guard lock(_mutex);
    if (const auto former = _items.find(menu); former != _items.end()) {
        _count -= former->second.size();
        _items.erase(former);
    }
    if (items.empty() || items.size() > LongestMenu)
        return;
    if (_count + items.size() > MostItems) {
        _items.clear();
        _count = 0;
    }
    _count += items.size();
    _items.emplace(menu, std::move(items));
}

void AtspiMenuMemory::useBus(std::uint64_t identity) {
    {
        const std::lock_guard lock(_mutex);
        if (std::exchange(_bus, identity) == identity)
            return;
    }
    forget();
}

void AtspiMenuMemory::forget() {
    const std::lock_guard lock(_mutex);
    _items.clear();
    _count = 0;
}

} // namespace tarragon
