#pragma once

#include "panels/TarragonPanelOwner.h"

#include <memory>

namespace tarragon {

class Menu;

// Whoever owns the screen-top bars carries out what concerns more than one of them. Main thread only.
class RKMenuBarOwner : public TarragonPanelOwner {
public:
    // The system's own menu, built afresh.
    virtual std::shared_ptr<Menu> addTarragonMenuToMenu() = 0;
    // Whether the program is started when the user logs in.
    virtual void setStartAtLogin(bool startsAtLogin) = 0;
};

} // namespace tarragon
