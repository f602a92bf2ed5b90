#pragma once

#include "platform/StatusItems.h"

#include <list>
#include <utility>

namespace tarragon {

// A tray in memory.
class FakeStatusItems : public StatusItems {
public:
    // The items there are, in the order in which they were added.
    const std::list<StatusItemDescription>& items() const { return _items; }
    // How many were ever added.
    int addedCount() const { return _added; }

    std::unique_ptr<StatusItem> addItem(StatusItemDescription description) override {
        ++_added;
        return std::make_unique<Item>(_items, _items.insert(_items.end(), std::move(description)));
    }

private:
    class Item : public StatusItem {
    public:
        Item(std::list<StatusItemDescription>& items, std::list<StatusItemDescription>::iterator position)
            : _items(items)
            , _position(position) { }
        ~Item() override { _items.erase(_position); }
        Item(const Item&) = delete;
        Item& operator=(const Item&) = delete;

    private:
        std::list<StatusItemDescription>& _items;
        std::list<StatusItemDescription>::iterator _position;
    };

    std::list<StatusItemDescription> _items;
    int _added = 0;
};

} // namespace tarragon
