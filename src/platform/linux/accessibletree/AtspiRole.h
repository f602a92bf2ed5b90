#pragma once

#include <cstdint>
#include <string_view>

namespace tarragon {

// The role numbers of accessible objects that we treat apart.
enum AtspiRole : std::uint32_t {
    AtspiRoleAlert = 2,
    AtspiRoleCanvas = 6,
    AtspiRoleCheckBox = 7,
    AtspiRoleCheckMenuItem = 8,
    AtspiRoleColorChooser = 9,
    AtspiRoleColumnHeader = 10,
    AtspiRoleComboBox = 11,
    AtspiRoleDialog = 16,
    AtspiRoleDrawingArea = 18,
    AtspiRoleFileChooser = 19,
    AtspiRoleFiller = 20,
    AtspiRoleFontChooser = 22,
    AtspiRoleFrame = 23,
    AtspiRoleIcon = 26,
    AtspiRoleImage = 27,
    AtspiRoleInternalFrame = 28,
    AtspiRoleLabel = 29,
    AtspiRoleList = 31,
    AtspiRoleListItem = 32,
    AtspiRoleMenu = 33,
    AtspiRoleMenuBar = 34,
    AtspiRoleMenuItem = 35,
    AtspiRolePageTab = 37,
    AtspiRolePageTabList = 38,
    AtspiRolePanel = 39,
    AtspiRolePasswordText = 40,
    AtspiRolePopupMenu = 41,
    AtspiRoleProgressBar = 42,
    AtspiRolePushButton = 43,
    AtspiRoleRadioButton = 44,
    AtspiRoleRadioMenuItem = 45,
    AtspiRoleRowHeader = 47,
    AtspiRoleScrollBar = 48,
    AtspiRoleScrollPane = 49,
    AtspiRoleSeparator = 50,
    AtspiRoleSlider = 51,
    AtspiRoleSpinButton = 52,
    AtspiRoleSplitPane = 53,
    AtspiRoleStatusBar = 54,
    AtspiRoleTable = 55,
    AtspiRoleTableCell = 56,
    AtspiRoleTableColumnHeader = 57,
    AtspiRoleTableRowHeader = 58,
    AtspiRoleTearoffMenuItem = 59,
    AtspiRoleTerminal = 60,
    AtspiRoleText = 61,
    AtspiRoleToggleButton = 62,
    AtspiRoleToolBar = 63,
    AtspiRoleTree = 65,
    AtspiRoleTreeTable = 66,
    AtspiRoleWindow = 69,
    AtspiRoleParagraph = 73,
    AtspiRoleApplication = 75,
    AtspiRoleEntry = 79,
    AtspiRoleDocumentFrame = 82,
    AtspiRoleHeading = 83,
    AtspiRoleLink = 88,
    AtspiRoleTableRow = 90,
    AtspiRoleTreeItem = 91,
    AtspiRoleDocumentSpreadsheet = 92,
    AtspiRoleDocumentEmail = 96,
    AtspiRoleListBox = 98,
    AtspiRoleStatic = 116,
};

// The role in the vocabulary of the system: "AXUnknown" for those that it has no word for. An item of a menu bar or a
// menu that opens another menu has the role "menu" in some toolkits; here it is an "AXMenuItem", and a menu bar's items
// are told apart by who asks.
std::string_view accessibilityRole(std::uint32_t role);
// The role in words for people, for a role in the vocabulary of the system.
std::string_view accessibilityRoleDescription(std::string_view role);

// An entry of a menu or a menu bar, of whatever kind.
bool isMenuItemRole(std::uint32_t role);
// A top-level window of an application.
bool isWindowRole(std::uint32_t role);
// False for objects within which no menu bar is looked for: controls, and what shows documents and lists, which are
// often very large.
bool mayContainMenuBar(std::uint32_t role);

} // namespace tarragon
