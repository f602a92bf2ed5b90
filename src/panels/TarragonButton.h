#pragma once

#include "panels/PanelButton.h"

namespace tarragon {

class TarragonPanelOwner;

// The single button of a vertical panel. It opens the whole mirrored menu as soon as it is pressed.
class TarragonButton : public PanelButton {
public:
    // position counts the buttons of a panel from 0. The owner outlives the button.
    TarragonButton(std::string title, int position, TarragonPanelOwner& owner, PanelToolkit& toolkit);

    // Draw in the look of a menu bar.
    bool keepButtonsAppleLike() const { return _keepButtonsAppleLike; }
    void setKeepButtonsAppleLike(bool keep) { _keepButtonsAppleLike = keep; }

    void mouseDown(const PanelMouseEvent& event) override;
    void rightMouseDown(const PanelMouseEvent& event) override;

private:
    TarragonPanelOwner& _owner;
    bool _keepButtonsAppleLike = false;
};

} // namespace tarragon
