#pragma once

#include "platform/WindowList.h"

#include <utility>

namespace tarragon {

// A list that tests write. Keeps a log of what was raised.
class FakeWindowList : public WindowList {
public:
    // Front to back.
    void setWindows(std::vector<ListedWindow> windows) { _windows = std::move(windows); }
    const std::vector<std::uint64_t>& raised() const { return _raised; }

    std::vector<ListedWindow> onScreenWindows() override { return _windows; }
    bool raise(std::uint64_t identifier) override {
        _raised.push_back(identifier);
        return true;
    }

private:
    std::vector<ListedWindow> _windows;
    std::vector<std::uint64_t> _raised;
};

} // namespace tarragon
