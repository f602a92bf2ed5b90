#include "mirror/MenuCache.h"

#include "platform/Log.h"

#include <string_view>
#include <utility>

namespace tarragon {

MenuCache::MenuCache(std::unique_ptr<FillingThreads> threads, Now now)
    : _now(std::move(now))
    , _threads(std::move(threads)) { }

MenuCache::~MenuCache() {
    _cacheLock.close();
    _threads.reset();
}

void MenuCache::cacheMenuForMenuItem(Menu::SharedTitle appName, std::shared_ptr<MenuItem> item, FillMenu fillMenu) {
    _threads->detachNewThread([this, appName = std::move(appName), item = std::move(item),
                                  fillMenu = std::move(fillMenu)] { fill(appName, item, fillMenu); });
}

void MenuCache::fill(
    const Menu::SharedTitle& appName, const std::shared_ptr<MenuItem>& item, const FillMenu& fillMenu) {
    createCache();
    while (_cacheLock.lockForFilling()) {
        const std::lock_guard lock(_cacheLock, std::adopt_lock);
        if (fillOnce(appName, item, fillMenu))
            return;
    }
}

// False when the filling was abandoned.
bool MenuCache::fillOnce(
    const Menu::SharedTitle& appName, const std::shared_ptr<MenuItem>& item, const FillMenu& fillMenu) {
    const std::shared_ptr<Menu> root = rootForFilling(appName);
    {
        const std::lock_guard guard(_guard);
        if (root->itemWithTitle(item->title()))
            return true;
    }
    const auto tell = [&](std::string_view what) {
        log(LogCategory::Menus,
            [&] { return "filling of " + item->title() + " of " + *appName + " " + std::string(what); });
    };
    tell("started");
    const Clock::time_point start = _now();
    bool abandoned = false;
    const auto shouldStop = [&] {
        const auto givesWay = [&] { return _cacheLock.probeWaits() && _now() - start > LongestDelay; };
        abandoned = abandoned || _cacheLock.isClosed() || givesWay();
        return abandoned;
    };
    // The item is added when its menu is complete: whoever finds it may read the menu at once.
    auto filled = std::make_shared<Menu>(item->title());
    fillMenu(*filled, shouldStop);
    if (abandoned) {
        tell("abandoned");
        return false;
    }
    item->setMenu(std::move(filled));
    tell("kept");
    const std::lock_guard guard(_guard);
    root->addItem(item);
    return true;
}

void MenuCache::createCache() {
    const std::lock_guard guard(_guard);
    if (!_cache)
        _cache.emplace();
}

std::shared_ptr<Menu> MenuCache::rootForFilling(const Menu::SharedTitle& appName) {
    Entry replaced; // destroyed after the guard is released
    const std::lock_guard guard(_guard);
    Entry& entry = (*_cache)[*appName];
    if (entry.name != appName)
        replaced = std::exchange(entry, {appName, std::make_shared<Menu>(appName)});
    return entry.root;
}

std::shared_ptr<Menu> MenuCache::rootOf(const std::string& appName) const {
    if (!_cache)
        return nullptr;
    const auto found = _cache->find(appName);
    return found == _cache->end() ? nullptr : found->second.root;
}

bool MenuCache::cacheExistsForMenu(const FocusedAppName& focusedAppName, const Menu& menu) {
    {
        const std::lock_guard guard(_guard);
        if (!_cache)
            return false;
    }
    _cacheLock.lockForProbe();
    const std::lock_guard lock(_cacheLock, std::adopt_lock);
    const auto appName = focusedAppName();
    if (!appName)
        return false;
    // A rebuild gives the item of this one menu another title than the menu has.
    const std::string title = menu.title() == "Apple" ? "\uF8FF" : menu.title();
    const std::lock_guard guard(_guard);
    const auto root = rootOf(*appName);
    return root && root->itemWithTitle(title);
}

std::shared_ptr<const Menu> MenuCache::filledMenu(const std::string& appName, const std::string& itemTitle) const {
    const std::lock_guard guard(_guard);
    const auto root = rootOf(appName);
    const auto item = root ? root->itemWithTitle(itemTitle) : nullptr;
    return item ? item->assignedMenu() : nullptr;
}

void MenuCache::clearCacheForAppKey(const std::string& appName) {
    Cache::node_type removed; // destroyed after the guard is released
    const std::lock_guard guard(_guard);
    if (_cache)
        removed = _cache->extract(appName);
}

} // namespace tarragon
