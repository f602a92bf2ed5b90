#include "fake/FakePanelSurfaces.h"

#include <utility>

namespace tarragon {

class FakePanelSurfaces::Surface : public PanelSurface {
public:
    Surface(FakePanelSurfaces& surfaces, std::uint64_t window)
        : _surfaces(surfaces)
        , _window(window) { }
    ~Surface() override { _surfaces._surfaces.erase(_window); }
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;

    void setLevel(PanelLevel level) override { record().level = level; }
    void setAlpha(double alpha) override {
        record().alpha = alpha;
        record().alphas.push_back(alpha);
    }
    bool isTranslucent() const override { return _surfaces._translucent; }
    void setClickableRegion(const std::vector<Rect>& region) override { record().clickableRegion = region; }
    void setPointerHandler(std::function<void(const std::optional<Point>& location)> handler) override {
        record().pointerHandler = std::move(handler);
    }

private:
    Record& record() { return _surfaces._surfaces.at(_window); }

    FakePanelSurfaces& _surfaces;
    std::uint64_t _window;
};

bool FakePanelSurfaces::movePointer(std::uint64_t window, const std::optional<Point>& location) {
    const auto found = _surfaces.find(window);
    if (found == _surfaces.end() || !found->second.pointerHandler)
        return false;
    const auto handler = found->second.pointerHandler; // which may end the surface
    handler(location);
    return true;
}

std::unique_ptr<PanelSurface> FakePanelSurfaces::makeSurface(std::uint64_t window) {
    if (_refused.contains(window))
        return nullptr;
    _surfaces[window] = {};
    return std::make_unique<Surface>(*this, window);
}

} // namespace tarragon
