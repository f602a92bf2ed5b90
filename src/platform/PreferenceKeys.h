#pragma once

#include <string>
#include <string_view>

namespace tarragon {

// The keys of the settings, as they are spelled in the store.
namespace preference {
inline constexpr std::string_view EnableHotkey = "EnableHotkey";
inline constexpr std::string_view NewTrigger = "NewTrigger";
inline constexpr std::string_view TriggerCharacterUInt = "TriggerCharacterUInt";
inline constexpr std::string_view TriggerModifiers = "TriggerModifiers";
inline constexpr std::string_view FoldAlternate = "FoldAlternate";
inline constexpr std::string_view ShowKeyEquivalents = "ShowKeyEquivalents";
inline constexpr std::string_view ShowAppleMenu = "ShowAppleMenu";
inline constexpr std::string_view ShowStatusBarIcon = "ShowStatusBarIcon";
inline constexpr std::string_view ShowTarragonMenu = "ShowTarragonMenu";
inline constexpr std::string_view LaunchOnLogin = "LaunchOnLogin";
inline constexpr std::string_view TarragonAlwaysVisible = "TarragonAlwaysVisible";
inline constexpr std::string_view TarragonAlwaysRight = "TarragonAlwaysRight";
inline constexpr std::string_view ShowOnPrimaryScreen = "ShowOnPrimaryScreen";
inline constexpr std::string_view EnableButton = "EnableButton";
inline constexpr std::string_view EnableSmartIgnore = "EnableSmartIgnore";
inline constexpr std::string_view ButtonHasShadow = "ButtonHasShadow";
inline constexpr std::string_view ButtonHasTexture = "ButtonHasTexture";
inline constexpr std::string_view ButtonHasBorder = "ButtonHasBorder";
inline constexpr std::string_view ButtonRound = "ButtonRound";
inline constexpr std::string_view ButtonLabel = "ButtonLabel";
inline constexpr std::string_view Horizontal = "Horizontal";
inline constexpr std::string_view FontSizeSmall = "FontSizeSmall";
inline constexpr std::string_view ButtonStyle = "ButtonStyle";
inline constexpr std::string_view TitleFontSizeSmall = "TitleFontSizeSmall";
inline constexpr std::string_view ShowApplicationMenu = "ShowApplicationMenu";
inline constexpr std::string_view EnableScreenTop = "EnableScreenTop";
inline constexpr std::string_view ScreenTopAutoHide = "ScreenTopAutoHide";
inline constexpr std::string_view ScreenTopTransparency = "ScreenTopTransparency";
inline constexpr std::string_view ScreenTopHalfHotZone = "ScreenTopHalfHotZone";
inline constexpr std::string_view HideOnPrimaryTopEdge = "HideOnPrimaryTopEdge";
inline constexpr std::string_view IgnoreWindowList = "IgnoreWindowList";
inline constexpr std::string_view EnableMouseButton = "EnableMouseButton";
inline constexpr std::string_view MouseButton = "MouseButton";

// Without a registered default: nothing until the program or the user writes them.

// The program was started before, with access to the accessibility interface.
inline constexpr std::string_view FirstRun = "FirstRun";
// Where releases are listed, in place of the address that the program was built with. Empty: nowhere.
inline constexpr std::string_view UpdateFeed = "UpdateFeed";
} // namespace preference

// What an observer of a key watches: "values." followed by the key.
inline std::string keyPathOfPreference(std::string_view key) {
    return "values." + std::string(key);
}

} // namespace tarragon
