#pragma once

namespace tarragon {

class MenuPresenter;
class PanelToolkit;
class PreferencesInterface;
class UserPanels;

// What the user sees of the program. Owns nothing; all of it outlives the delegate.
struct UserInterface {
    MenuPresenter& menuPresenter;
    PanelToolkit& panelToolkit;
    UserPanels& panels;
    PreferencesInterface& preferences;
};

} // namespace tarragon
