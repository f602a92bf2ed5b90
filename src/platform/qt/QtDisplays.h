#pragma once

#include "platform/Displays.h"

namespace tarragon {

// Screens and pointer as Qt knows them, in its device-independent pixels. Needs the QApplication.
class QtDisplays : public Displays {
public:
    std::vector<Screen> screens() override;
    Rect mainDisplayBoundsCG() override;
    Point mouseLocationNS() override;
};

} // namespace tarragon
