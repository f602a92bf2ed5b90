#pragma once

#include <string_view>

// The accessibility vocabulary of the system. Every back end translates its desktop into these names.
namespace tarragon {

namespace attribute {
inline constexpr std::string_view Children = "AXChildren"; // elements, in order of display
inline constexpr std::string_view Description = "AXDescription"; // string
inline constexpr std::string_view Enabled = "AXEnabled"; // bool
inline constexpr std::string_view Focused = "AXFocused"; // bool
inline constexpr std::string_view FocusedApplication = "AXFocusedApplication"; // element; of the system-wide element
inline constexpr std::string_view FocusedWindow = "AXFocusedWindow"; // element; of an application
inline constexpr std::string_view FullScreen = "AXFullScreen"; // bool; of a window
inline constexpr std::string_view Hidden = "AXHidden"; // bool; of an application
inline constexpr std::string_view MenuBar = "AXMenuBar"; // element; of an application
inline constexpr std::string_view MenuItemCmdChar = "AXMenuItemCmdChar"; // string of one upper-case character
inline constexpr std::string_view MenuItemCmdGlyph = "AXMenuItemCmdGlyph"; // integer, a menu glyph code
inline constexpr std::string_view MenuItemCmdModifiers = "AXMenuItemCmdModifiers"; // integer, see MenuItemModifiers
inline constexpr std::string_view MenuItemMarkChar = "AXMenuItemMarkChar"; // string; absent when not marked
inline constexpr std::string_view MenuItemPrimaryUIElement = "AXMenuItemPrimaryUIElement"; // element
// The shortcut in the words of the desktop, ready to be shown ("Ctrl+Shift+S"): string, absent when there is none.
// Optional: views show it in place of the key equivalent, which cannot express every shortcut.
inline constexpr std::string_view MenuItemShortcutText = "AXMenuItemShortcutText";
inline constexpr std::string_view Parent = "AXParent"; // element
inline constexpr std::string_view Position = "AXPosition"; // point, screen space, top-left corner
inline constexpr std::string_view Role = "AXRole"; // string, one of role:: or another AX name
inline constexpr std::string_view RoleDescription = "AXRoleDescription"; // string for people
inline constexpr std::string_view Rows = "AXRows"; // elements
inline constexpr std::string_view Size = "AXSize"; // size
inline constexpr std::string_view Subrole = "AXSubrole"; // string; tells elements of one role apart
inline constexpr std::string_view Title = "AXTitle"; // string
inline constexpr std::string_view TitleUIElement = "AXTitleUIElement"; // element
inline constexpr std::string_view Value = "AXValue"; // string or number
inline constexpr std::string_view Window = "AXWindow"; // element; the window in which the element lies
inline constexpr std::string_view Windows = "AXWindows"; // elements; of an application
} // namespace attribute

namespace role {
inline constexpr std::string_view Application = "AXApplication";
inline constexpr std::string_view Menu = "AXMenu";
inline constexpr std::string_view MenuBar = "AXMenuBar";
inline constexpr std::string_view MenuBarItem = "AXMenuBarItem";
inline constexpr std::string_view MenuItem = "AXMenuItem";
inline constexpr std::string_view SystemWide = "AXSystemWide";
inline constexpr std::string_view TextField = "AXTextField";
inline constexpr std::string_view Unknown = "AXUnknown";
inline constexpr std::string_view Window = "AXWindow";
} // namespace role

namespace action {
inline constexpr std::string_view Press = "AXPress";
inline constexpr std::string_view ShowMenu = "AXShowMenu";
inline constexpr std::string_view Raise = "AXRaise";
} // namespace action

} // namespace tarragon
