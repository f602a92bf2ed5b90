#pragma once

#include "platform/linux/windows/PixelScale.h"
#include "platform/linux/windows/WindowSource.h"
#include "platform/linux/x11/X11ActivationOrder.h"
#include "platform/linux/x11/X11ActiveWindowCache.h"

#include <cstdint>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

namespace tarragon {

class X11Connection;
struct X11WindowAtoms;

// Top-level windows of an X server, through the window manager's hints.
class X11Windows final : public WindowSource {
public:
    // Both outlive this object. Without a scale every pixel is a point.
    explicit X11Windows(X11Connection& connection, const CurrentPixelScale* scale = nullptr);
    ~X11Windows() override;
    X11Windows(const X11Windows&) = delete;
    X11Windows& operator=(const X11Windows&) = delete;

    std::optional<std::uint32_t> activeWindow() override;
    std::optional<WindowDescription> describe(std::uint32_t window) override;
    std::optional<WindowDescription> describeActiveWindow() override;
    std::vector<WindowDescription> describe(const std::vector<std::uint32_t>& windows) override;
    std::optional<std::uint32_t> shownWorkspace() override;
    std::vector<std::uint32_t> managedWindows() override;
    std::vector<std::uint32_t> windowsByActivation() override;
    std::optional<std::uint32_t> windowAtPosition(const Point& pointCG) override;

    void beginLook() override { _cache.beginLook(); }
    void endLook() override { _cache.endLook(); }
    // The number of the calling thread's look, another one for each; nothing while it has none.
    std::optional<std::uint64_t> currentLook() { return _cache.currentLook(); }

    bool setPosition(std::uint32_t window, const Point& topLeftCG) override;
    bool setSize(std::uint32_t window, const Size& frameSize) override;
    bool raise(std::uint32_t window) override;

    // To be told of by whoever watches the active window.
    X11ActivationOrder& activationOrder() { return _activationOrder; }
    // Takes what the server has told meanwhile. To be called now and then by whoever is woken for it.
    void takeEvents() { _cache.takeEvents(); }
    // The windows that anybody was told to be the active one since the last call, each once.
    [[nodiscard]] std::vector<std::uint32_t> takeToldWindows();

private:
    bool isMaximized(std::uint32_t window);
    void unmaximize(std::uint32_t window);
    PixelScale scale() const;
    std::vector<WindowDescription> describeInPixels(const std::vector<std::uint32_t>& windows);
    void noteTold(std::uint32_t window);
    std::optional<std::uint32_t> readActiveWindow();
    std::optional<WindowDescription> readDescription(std::uint32_t window);

    X11Connection& _connection;
    const CurrentPixelScale* _scale;
    std::unique_ptr<const X11WindowAtoms> _atoms;
    X11ActivationOrder _activationOrder;
    X11ActiveWindowCache _cache;
    std::mutex _toldMutex; // guards _toldWindows
    std::vector<std::uint32_t> _toldWindows;
};

} // namespace tarragon
