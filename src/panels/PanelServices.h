#pragma once

namespace tarragon {

class Displays;
class MenuPresenter;
class PanelToolkit;
class RunLoop;

// What panels are made with. Owns nothing; all of it outlives the panels.
struct PanelServices {
    PanelToolkit& toolkit;
    MenuPresenter& menuPresenter;
    Displays& displays;
    RunLoop& runLoop;
};

} // namespace tarragon
