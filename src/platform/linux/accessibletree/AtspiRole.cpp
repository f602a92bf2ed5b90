#include "platform/linux/accessibletree/AtspiRole.h"

#include "platform/AccessibilityNames.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tarragon {

std::string_view accessibilityRole(std::uint32_t role) {
    switch (role) {
    case AtspiRoleApplication:
        return role::Application;
    case AtspiRoleMenuBar:
        return role::MenuBar;
    case AtspiRolePopupMenu:
        return role::Menu;
    case AtspiRoleMenu:
    case AtspiRoleMenuItem:
    case AtspiRoleCheckMenuItem:
    case AtspiRoleRadioMenuItem:
    case AtspiRoleTearoffMenuItem:
        return role::MenuItem;
    case AtspiRoleFrame:
    case AtspiRoleDialog:
    case AtspiRoleWindow:
    case AtspiRoleAlert:
    case AtspiRoleFileChooser:
    case AtspiRoleColorChooser:
    case AtspiRoleFontChooser:
        return role::Window;
    case AtspiRoleText:
    case AtspiRolePasswordText:
    case AtspiRoleEntry:
        return role::TextField;
    case AtspiRoleTerminal:
        return "AXTextArea";
    case AtspiRolePushButton:
    case AtspiRoleToggleButton:
        return "AXButton";
    case AtspiRoleCheckBox:
        return "AXCheckBox";
    case AtspiRoleRadioButton:
    case AtspiRolePageTab:
        return "AXRadioButton";
    case AtspiRolePageTabList:
        return "AXTabGroup";
    case AtspiRoleComboBox:
        return "AXComboBox";
    case AtspiRoleLabel:
    case AtspiRoleStatic:
    case AtspiRoleParagraph:
        return "AXStaticText";
    case AtspiRoleHeading:
        return "AXHeading";
    case AtspiRoleLink:
        return "AXLink";
    case AtspiRoleImage:
    case AtspiRoleIcon:
        return "AXImage";
    case AtspiRoleToolBar:
        return "AXToolbar";
    case AtspiRoleStatusBar:
    case AtspiRolePanel:
    case AtspiRoleFiller:
    case AtspiRoleInternalFrame:
    case AtspiRoleCanvas:
    case AtspiRoleDrawingArea:
        return "AXGroup";
    case AtspiRoleScrollBar:
        return "AXScrollBar";
    case AtspiRoleScrollPane:
        return "AXScrollArea";
    case AtspiRoleSplitPane:
        return "AXSplitGroup";
    case AtspiRoleSeparator:
        return "AXSplitter";
    case AtspiRoleSlider:
        return "AXSlider";
    case AtspiRoleSpinButton:
        return "AXIncrementor";
    case AtspiRoleProgressBar:
        return "AXProgressIndicator";
    case AtspiRoleList:
    case AtspiRoleListBox:
        return "AXList";
    case AtspiRoleTable:
        return "AXTable";
    case AtspiRoleTree:
    case AtspiRoleTreeTable:
        return "AXOutline";
    case AtspiRoleTableRow:
    case AtspiRoleTreeItem:
        return "AXRow";
    case AtspiRoleTableCell:
    case AtspiRoleListItem:
        return "AXCell";
    case AtspiRoleDocumentFrame:
        return "AXWebArea";
    default:
        return role::Unknown;
    }
}

std::string_view accessibilityRoleDescription(std::string_view role) {
    static constexpr std::array descriptions = std::to_array<std::pair<std::string_view, std::string_view>>({
        {role::SystemWide, "system wide"},
        {role::Application, "application"},
        {role::Window, "window"},
        {role::MenuBar, "menu bar"},
        {role::MenuBarItem, "menu bar item"},
        {role::Menu, "menu"},
        {role::MenuItem, "menu item"},
        {role::TextField, "text field"},
        {"AXTextArea", "text entry area"},
        {"AXButton", "button"},
        {"AXCheckBox", "checkbox"},
        {"AXRadioButton", "radio button"},
        {"AXTabGroup", "tab group"},
        {"AXComboBox", "combo box"},
        {"AXStaticText", "text"},
        {"AXHeading", "heading"},
        {"AXLink", "link"},
        {"AXImage", "image"},
        {"AXToolbar", "toolbar"},
        {"AXGroup", "group"},
        {"AXScrollBar", "scroll bar"},
        {"AXScrollArea", "scroll area"},
        {"AXSplitGroup", "split group"},
        {"AXSplitter", "splitter"},
        {"AXSlider", "slider"},
        {"AXIncrementor", "incrementor"},
        {"AXProgressIndicator", "progress indicator"},
        {"AXList", "list"},
        {"AXTable", "table"},
        {"AXOutline", "outline"},
        {"AXRow", "row"},
        {"AXCell", "cell"},
        {"AXWebArea", "document"},
    });
    const auto* found = std::ranges::find(descriptions, role, &std::pair<std::string_view, std::string_view>::first);
    return found != descriptions.end() ? found->second : "unknown";
}

bool isMenuItemRole(std::uint32_t role) {
    switch (role) {
    case AtspiRoleMenu:
    case AtspiRoleMenuItem:
    case AtspiRoleCheckMenuItem:
    case AtspiRoleRadioMenuItem:
    case AtspiRoleSeparator:
        return true;
    default:
        return false;
    }
}

bool isWindowRole(std::uint32_t role) {
    return accessibilityRole(role) == role::Window;
}

bool mayContainMenuBar(std::uint32_t role) {
    switch (role) {
    case AtspiRoleCheckBox:
    case AtspiRoleColumnHeader:
    case AtspiRoleComboBox:
    case AtspiRoleHeading:
    case AtspiRoleIcon:
    case AtspiRoleImage:
    case AtspiRoleLabel:
    case AtspiRoleLink:
    case AtspiRoleList:
    case AtspiRoleListBox:
    case AtspiRoleListItem:
    case AtspiRolePageTabList:
    case AtspiRoleParagraph:
    case AtspiRolePasswordText:
    case AtspiRoleProgressBar:
    case AtspiRolePushButton:
    case AtspiRoleRadioButton:
    case AtspiRoleRowHeader:
    case AtspiRoleScrollBar:
    case AtspiRoleScrollPane:
    case AtspiRoleSlider:
    case AtspiRoleSpinButton:
    case AtspiRoleStatic:
    case AtspiRoleStatusBar:
    case AtspiRoleTable:
    case AtspiRoleTableCell:
    case AtspiRoleTableColumnHeader:
    case AtspiRoleTableRow:
    case AtspiRoleTableRowHeader:
    case AtspiRoleTerminal:
    case AtspiRoleText:
    case AtspiRoleEntry:
    case AtspiRoleToggleButton:
    case AtspiRoleTree:
    case AtspiRoleTreeItem:
    case AtspiRoleTreeTable:
    case AtspiRoleDocumentFrame:
    case AtspiRolePopupMenu:
        return false;
    default:
        return !isMenuItemRole(role) && (role < AtspiRoleDocumentSpreadsheet || role > AtspiRoleDocumentEmail);
    }
}

} // namespace tarragon
