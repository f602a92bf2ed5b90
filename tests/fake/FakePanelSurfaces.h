#pragma once

#include "platform/PanelSurfaces.h"

#include <map>
#include <optional>
#include <set>
#include <vector>

namespace tarragon {

// Panels of which only what was asked for is kept.
class FakePanelSurfaces : public PanelSurfaces {
public:
    // How a panel is at this moment.
    struct Record {
        PanelLevel level = PanelLevel::FrontWindow;
        double alpha = 1;
        std::vector<double> alphas; // every one that was set
        std::optional<std::vector<Rect>> clickableRegion; // nothing for all of it
        std::function<void(const std::optional<Point>& location)> pointerHandler;
    };

    // No surface can be had for this window from now on.
    void refuse(std::uint64_t window) { _refused.insert(window); }
    // Whether panels are shown translucent from now on; they are at the start.
    void setTranslucent(bool translucent) { _translucent = translucent; }
    // Of the surfaces that there are, by window.
    const std::map<std::uint64_t, Record>& surfaces() const { return _surfaces; }
    // The pointer enters, moves or leaves (nothing) the panel. False when there is no surface that wants to hear of it.
    bool movePointer(std::uint64_t window, const std::optional<Point>& location);

    // The windows that were put on every workspace, in order.
    const std::vector<std::uint64_t>& onAllSpaces() const { return _onAllSpaces; }

    std::unique_ptr<PanelSurface> makeSurface(std::uint64_t window) override;
    void joinAllSpaces(std::uint64_t window) override { _onAllSpaces.push_back(window); }

private:
    class Surface;

    std::map<std::uint64_t, Record> _surfaces;
    std::set<std::uint64_t> _refused;
    std::vector<std::uint64_t> _onAllSpaces;
    bool _translucent = true;
};

} // namespace tarragon
