#include "cli/MirrorTree.h"

#include "mirror/ProxyMenuItem.h"
#include "mirror/ShortcutText.h"

#include <string_view>
#include <utility>

namespace tarragon {

namespace {

// No real menu is nested as deep; an application that lies about its submenus may be.
constexpr std::size_t MaximumDepth = 64;
// Nor does one hold as many items.
constexpr std::size_t MaximumItems = 200'000;

// The key is asked for once per proxy, as each further time would give a longer one. Separators have none.
std::string keyOf(const MenuItem& item) {
    const auto proxy = std::dynamic_pointer_cast<ProxyMenuItem>(item.target());
    return proxy ? proxy->itemKey() : std::string();
}

class TreeReader {
public:
    TreeReader(AppAccessibility& reader, std::size_t depth)
        : _reader(reader)
        , _depth(depth == 0 || depth > MaximumDepth ? MaximumDepth : depth) { }

    std::vector<MirrorNode> read(const Menu& menu, std::size_t level) {
        std::vector<MirrorNode> nodes;
        for (const auto& item : menu.items()) {
            if (++_count > MaximumItems)
                break;
            MirrorNode node{item, keyOf(*item), shortcutAsShown(*item), {}};
            if (item->submenu() && level < _depth) {
                _reader.menuNeedsUpdate(*item->submenu());
                node.items = read(*item->submenu(), level + 1);
            }
            nodes.push_back(std::move(node));
        }
        return nodes;
    }

private:
    AppAccessibility& _reader;
    std::size_t _depth;
    std::size_t _count = 0;
};

} // namespace

std::vector<MirrorNode> readMirrorTree(AppAccessibility& reader, std::size_t depth) {
    return TreeReader(reader, depth).read(*reader.menu(), 1);
}

std::shared_ptr<MenuItem> findMirrorItem(AppAccessibility& reader, const std::string& itemKey) {
    // Titles may hold bars themselves, so whole keys are compared rather than split. The first item whose key the
    // wanted one begins with need not be the right one ("A" beside "A|B"), hence the candidates are tried in turn.
    struct Candidates {
        std::shared_ptr<Menu> menu;
        std::size_t next = 0;
    };
    std::vector<Candidates> path{{reader.menu(), 0}};
    while (!path.empty()) {
        Candidates& current = path.back();
        const auto item = current.menu->itemAtIndex(static_cast<std::ptrdiff_t>(current.next++));
        if (!item) {
            path.pop_back();
            continue;
        }
        const std::string key = keyOf(*item);
        if (key.empty())
            continue;
        if (key == itemKey)
            return item;
        if (item->submenu() && path.size() < MaximumDepth && std::string_view(itemKey).starts_with(key)) {
            reader.menuNeedsUpdate(*item->submenu());
            path.push_back({item->submenu(), 0});
        }
    }
    return nullptr;
}

} // namespace tarragon
