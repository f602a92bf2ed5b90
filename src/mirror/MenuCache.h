#pragma once

#include "mirror/CacheLock.h"
#include "mirror/FillingThreads.h"
#include "mirror/Menu.h"

#include <chrono>
#include <functional>
#include <map>
#include <memory>
#include <mutex>
#include <optional>
#include <string>

namespace tarragon {

// The converted top-level menus of each application, filled in the background so that a menu that opens need not be
// read then.
//
// An application's entry is a root menu titled with its name. Its items are copies of the mirrored top-level items,
// each with its filled menu in the item's menu slot. A filled menu is never changed again once it can be found here, so
// that the main thread may copy from it while fillings go on.
//
// The cache lock is held for the whole of a filling and of a probe, so that fillings follow one another; a probe waits
// for the one that is under way and for no other. A filling that takes long gives way to a probe: it is abandoned at
// its next question, nothing of it is kept, and it begins anew after the probe; the menu is then read as it opens. A
// look-up does not take the lock: between a probe and a look-up a filling may replace the application's root, and the
// look-up then finds nothing.
//
// A filling runs on a thread of its own; everything else belongs to the main thread.
class MenuCache {
public:
    // Fills a menu. It asks shouldStop before every question to the application: once that has answered true, nothing
    // of the menu is kept.
    using ShouldStop = std::function<bool()>;
    using FillMenu = std::function<void(Menu& menu, const ShouldStop& shouldStop)>;
    // The time now, for telling how long a filling has taken. Called on the threads of the fillings.
    using Clock = std::chrono::steady_clock;
    using Now = std::function<Clock::time_point()>;

    // A filling that has taken longer gives way to a menu that opens.
    static constexpr Clock::duration LongestDelay = std::chrono::milliseconds(100);

    explicit MenuCache(std::unique_ptr<FillingThreads> threads, Now now = Clock::now);
    MenuCache(const MenuCache&) = delete;
    MenuCache& operator=(const MenuCache&) = delete;
    // Waits for the filling that is under way to ask its next question, where it is abandoned. Those behind it end
    // without filling anything.
    ~MenuCache();

    // Starts a thread that converts the submenu of a top-level item. appName is not nullptr. item is a copy that
    // belongs to the cache from now on; fillMenu converts the real items, on the thread. The menus that the
    // application has here are kept only when its entry was made with the very same name object: an equal name starts
    // the entry afresh. Does nothing when the entry has an item of the title already. A menu that could not be
    // read is kept as an empty one, until a filling starts the entry afresh.
    void cacheMenuForMenuItem(Menu::SharedTitle appName, std::shared_ptr<MenuItem> item, FillMenu fillMenu);

    // The name of the application in front; nothing when there is none.
    using FocusedAppName = std::function<std::optional<std::string>()>;

    // Whether the application in front has an item for the submenu. Waits for the filling that is under way, and asks
    // for the name then; answers at once, and asks for nothing, when nothing was ever cached.
    [[nodiscard]] bool cacheExistsForMenu(const FocusedAppName& focusedAppName, const Menu& menu);

    // The filled menu of the item with that title, or nullptr.
    [[nodiscard]] std::shared_ptr<const Menu> filledMenu(
        const std::string& appName, const std::string& itemTitle) const;

    // Forgets the application.
    void clearCacheForAppKey(const std::string& appName);

private:
    struct Entry {
        Menu::SharedTitle name;
        std::shared_ptr<Menu> root;
    };
    using Cache = std::map<std::string, Entry>;

    void fill(const Menu::SharedTitle& appName, const std::shared_ptr<MenuItem>& item, const FillMenu& fillMenu);
    [[nodiscard]] bool fillOnce(
        const Menu::SharedTitle& appName, const std::shared_ptr<MenuItem>& item, const FillMenu& fillMenu);
    void createCache();
    std::shared_ptr<Menu> rootForFilling(const Menu::SharedTitle& appName);
    std::shared_ptr<Menu> rootOf(const std::string& appName) const;

    Now _now;
    CacheLock _cacheLock;
    // Guards the entries and the item lists of their roots, for the moment of each access.
    mutable std::mutex _guard;
    std::optional<Cache> _cache; // made by the first filling
    std::unique_ptr<FillingThreads> _threads;
};

} // namespace tarragon
