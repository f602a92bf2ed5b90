#pragma once

#include "updates/UpdateChecker.h"

#include <string>
#include <utility>
#include <vector>

namespace tarragon {

// Answers when the test does.
class FakeUpdateChecker : public UpdateChecker {
public:
    void setBuiltInFeed(std::string address) { _builtInFeed = std::move(address); }
    // The addresses that were asked, in order.
    const std::vector<std::string>& addresses() const { return _addresses; }
    // Answers the question that is under way.
    void answer(const UpdateOutcome& outcome) { std::exchange(_handler, nullptr)(outcome); }

    std::string builtInFeed() const override { return _builtInFeed; }
    bool isChecking() const override { return _handler != nullptr; }
    void check(const std::string& address, Handler handler) override {
        _addresses.push_back(address);
        _handler = std::move(handler);
    }

private:
    std::string _builtInFeed;
    std::vector<std::string> _addresses;
    Handler _handler;
};

} // namespace tarragon
