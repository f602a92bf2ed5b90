#pragma once

#include "platform/LoginItemList.h"

namespace tarragon {

// Login items in memory. An inserted item is called like the last component of its path.
class FakeLoginItemList : public LoginItemList {
public:
    // A desktop without such a list.
    void setAvailable(bool available) { _available = available; }
    // Puts an item into the list behind our back.
    void add(std::optional<std::string> displayName, std::optional<std::string> path, bool isHidden = false);
    const std::vector<LoginItem>& items() const { return _items; }
    int insertCount() const { return _insertCount; }

    // A list that nothing can be written to.
    void setWritable(bool writable) { _writable = writable; }
    int removeCount() const { return _removeCount; }

    bool isAvailable() const override { return _available; }
    std::optional<std::vector<LoginItem>> copySnapshot() override;
    [[nodiscard]] bool insertItem(const std::string& path, bool isHidden) override;
    [[nodiscard]] bool removeItem(const LoginItem& item) override;

private:
    std::vector<LoginItem> _items;
    int _nextReference = 1;
    int _insertCount = 0;
    int _removeCount = 0;
    bool _available = true;
    bool _writable = true;
};

} // namespace tarragon
