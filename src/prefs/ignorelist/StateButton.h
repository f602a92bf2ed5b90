#pragma once

namespace tarragon {

// A check box on the screen, as those see it who know its state.
class StateButton {
public:
    virtual ~StateButton() = default;
    // Nobody is told of the change, unlike when the user clicks.
    virtual void setState(bool isOn) = 0;
};

} // namespace tarragon
