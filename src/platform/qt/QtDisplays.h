#pragma once

#include "platform/Displays.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace tarragon {

class QtScreenWatch;
class RunLoop;

// Screens and pointer as Qt knows them, in its device-independent pixels. Needs the QApplication. The run loop is not
// owned.
class QtDisplays : public Displays {
public:
    explicit QtDisplays(RunLoop& runLoop);
    ~QtDisplays() override;

    std::vector<Screen> screens() override;
    Rect mainDisplayBoundsCG() override;
    Point mouseLocationNS() override;
    void installReconfigurationHandler(std::function<void(std::uint32_t flags)> handler) override;

private:
    RunLoop& _runLoop;
    std::unique_ptr<QtScreenWatch> _watch; // made for the first handler
};

} // namespace tarragon
