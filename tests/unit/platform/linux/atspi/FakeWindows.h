#pragma once

#include "platform/linux/windows/ApplicationDirectory.h"
#include "platform/linux/windows/WindowSource.h"

#include <algorithm>
#include <functional>
#include <optional>
#include <ranges>
#include <string>
#include <utility>
#include <vector>

namespace tarragon {

// Windows as plain records, bottom to top.
class FakeWindowSource final : public WindowSource {
public:
    WindowDescription& add(std::uint32_t identifier, std::string title, std::int64_t processIdentifier) {
        WindowDescription window;
        window.identifier = identifier;
        window.title = std::move(title);
        window.processIdentifier = processIdentifier;
        window.className = "Class" + std::to_string(processIdentifier);
        window.frameCG = {{10.0 * identifier, 20}, {300, 200}};
        activation.insert(activation.begin(), identifier);
        active = identifier;
        return windows.emplace_back(std::move(window));
    }
    void activate(std::uint32_t identifier) {
        active = identifier;
        std::erase(activation, identifier);
        activation.insert(activation.begin(), identifier);
    }
    void remove(std::uint32_t identifier) {
        std::erase_if(windows, [&](const WindowDescription& window) { return window.identifier == identifier; });
        std::erase(activation, identifier);
        if (active == identifier)
            active.reset();
    }
    WindowDescription& at(std::uint32_t identifier) {
        return *std::ranges::find(windows, identifier, &WindowDescription::identifier);
    }

    std::optional<std::uint32_t> activeWindow() override {
        if (beforeActiveWindow)
            beforeActiveWindow();
        ++questions;
        return active;
    }
    std::optional<WindowDescription> describe(std::uint32_t window) override {
        ++questions;
        const auto found = std::ranges::find(windows, window, &WindowDescription::identifier);
        return found != windows.end() ? std::optional(*found) : std::nullopt;
    }
    std::vector<WindowDescription> describe(const std::vector<std::uint32_t>& identifiers) override {
        std::vector<WindowDescription> result;
        for (const std::uint32_t identifier : identifiers) {
            if (auto window = describe(identifier))
                result.push_back(std::move(*window));
        }
        return result;
    }
    std::optional<std::uint32_t> shownWorkspace() override {
        ++questions;
        return workspace;
    }
    std::vector<std::uint32_t> managedWindows() override {
        std::vector<std::uint32_t> result;
        for (const WindowDescription& window : windows)
            result.push_back(window.identifier);
        return result;
    }
    std::vector<std::uint32_t> windowsByActivation() override { return activation; }
    std::optional<std::uint32_t> windowAtPosition(const Point& pointCG) override {
        const auto topmost = std::find_if(windows.rbegin(), windows.rend(),
            [&](const WindowDescription& window) { return contains(window.frameCG, pointCG); });
        return topmost == windows.rend() ? std::nullopt : std::optional(topmost->identifier);
    }
    void beginLook() override { ++openLooks; }
    void endLook() override { --openLooks; }
    bool setPosition(std::uint32_t window, const Point& topLeftCG) override {
        at(window).frameCG.origin = topLeftCG;
        return true;
    }
    bool setSize(std::uint32_t window, const Size& frameSize) override {
        at(window).frameCG.size = frameSize;
        return true;
    }
    bool raise(std::uint32_t window) override {
        raised.push_back(window);
        return true;
    }

    std::vector<WindowDescription> windows;
    std::optional<std::uint32_t> active;
    std::vector<std::uint32_t> activation; // the latest first
    std::vector<std::uint32_t> raised;
    std::optional<std::uint32_t> workspace; // that is shown
    int questions = 0; // about the active window, single windows and workspaces
    int openLooks = 0;
    std::function<void()> beforeActiveWindow;
};

// Calls applications by the class of their windows, and those without a window by their process.
class FakeApplicationDirectory final : public ApplicationDirectory {
public:
    std::optional<DesktopEntry> entryForWindow(const WindowDescription& /*window*/) override { return {}; }
    std::string applicationName(const WindowDescription& window) override {
        if (!window.className.empty())
            return window.className;
        return window.processIdentifier != 0 ? "process " + std::to_string(window.processIdentifier) : "";
    }
};

} // namespace tarragon
