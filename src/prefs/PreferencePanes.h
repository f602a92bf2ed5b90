#pragma once

#include "platform/Geometry.h"

#include <cstddef>
#include <cstdint>
#include <string>

namespace tarragon {

// What the preferences window shows, one at a time, in the order of its toolbar.
enum class PreferencePane : std::uint8_t { General, HotKey, WindowTop, ScreenTop, IgnoreList, About, Help };
inline constexpr std::size_t PreferencePaneCount = 7;

// The texts that explain the ways of opening menus, beside the controls of the general pane.
enum class PreferenceHelpText : std::uint8_t { General, PopUp, Window, ScreenTop, IgnoreList };
inline constexpr std::size_t PreferenceHelpTextCount = 5;

// An item of the toolbar.
struct PreferenceItem {
    std::string identifier; // not for people
    std::string label;
    std::int64_t tag = 0; // chooses the pane
};

// The place of the help among the items.
inline constexpr std::size_t HelpItemIndex = 6;

// A tag that means nothing stands for the general pane, and for the general text.
PreferencePane preferencePaneForTag(std::int64_t tag);
PreferenceHelpText preferenceHelpTextForTag(std::int64_t tag);

// The frame of a window whose content is to become as high as a pane: it grows and shrinks at the bottom, and its top
// edge stays where it is.
Rect windowFrameForPane(const Rect& windowFrameNS, double contentHeight, double paneHeight);

} // namespace tarragon
