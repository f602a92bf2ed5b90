#pragma once

#include "platform/WindowPicker.h"

#include <utility>

namespace tarragon {

// The windows of a desktop in memory, picked by the test.
class FakeWindowPicker : public WindowPicker {
public:
    void setAvailable(bool available) { _isAvailable = available; }
    bool isPicking() const { return static_cast<bool>(_handler); }

    // The user clicks into that window, or none. Does nothing while nobody picks.
    void pick(const std::optional<PickedWindow>& window) {
        if (const auto handler = std::exchange(_handler, nullptr))
            handler(window);
    }

    bool pickWindow(std::function<void(const std::optional<PickedWindow>& window)> handler) override {
        if (!_isAvailable || _handler)
            return false;
        _handler = std::move(handler);
        return true;
    }
    void cancel() override { _handler = nullptr; }

private:
    std::function<void(const std::optional<PickedWindow>& window)> _handler;
    bool _isAvailable = true;
};

} // namespace tarragon
