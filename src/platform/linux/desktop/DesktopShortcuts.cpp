#include "platform/linux/desktop/DesktopShortcuts.h"

#include "platform/HotKeys.h"
#include "platform/linux/desktop/DesktopShortcutsXml.h"

#include <algorithm>
#include <array>
#include <map>
#include <optional>
#include <utility>

namespace tarragon {

namespace {

using ModifierName = std::pair<std::string_view, std::uint32_t>;

template <std::size_t Count>
std::optional<std::uint32_t> modifierNamed(const std::array<ModifierName, Count>& names, std::string_view name) {
    const auto* const found =
        std::find_if(names.begin(), names.end(), [name](const ModifierName& entry) { return entry.first == name; });
    return found == names.end() ? std::nullopt : std::optional(found->second);
}

// "<Primary><Alt>t". Nothing without a key or with a modifier that hot keys do not know.
std::optional<DesktopShortcut> xfceCombination(std::string_view text) {
    static constexpr std::array<ModifierName, 8> Names{
        {{"Primary", hotkey::CommandKey}, {"Control", hotkey::CommandKey}, {"Ctrl", hotkey::CommandKey},
            {"Alt", hotkey::OptionKey}, {"Mod1", hotkey::OptionKey}, {"Super", hotkey::ControlKey},
            {"Mod4", hotkey::ControlKey}, {"Shift", hotkey::ShiftKey}}};
    DesktopShortcut shortcut;
    while (text.starts_with('<')) {
        const std::size_t end = text.find('>');
        if (end == std::string_view::npos)
            return std::nullopt;
        const std::optional<std::uint32_t> modifier = modifierNamed(Names, text.substr(1, end - 1));
        if (!modifier)
            return std::nullopt;
        shortcut.modifiers |= *modifier;
        text.remove_prefix(end + 1);
    }
    if (text.empty())
        return std::nullopt;
    shortcut.keyName = text;
    return shortcut;
}

// "C-A-Delete", or a chain of such combinations of which the first one counts.
std::optional<DesktopShortcut> openboxCombination(std::string_view text) {
    static constexpr std::array<ModifierName, 8> Names{{{"C", hotkey::CommandKey}, {"Control", hotkey::CommandKey},
        {"A", hotkey::OptionKey}, {"Mod1", hotkey::OptionKey}, {"W", hotkey::ControlKey}, {"Mod4", hotkey::ControlKey},
        {"S", hotkey::ShiftKey}, {"Shift", hotkey::ShiftKey}}};
    text = text.substr(0, text.find(' '));
    DesktopShortcut shortcut;
    for (std::size_t dash = text.find('-'); dash != std::string_view::npos && dash + 1 < text.size();
         dash = text.find('-')) {
        const std::optional<std::uint32_t> modifier = modifierNamed(Names, text.substr(0, dash));
        if (!modifier)
            return std::nullopt;
        shortcut.modifiers |= *modifier;
        text.remove_prefix(dash + 1);
    }
    if (text.empty())
        return std::nullopt;
    shortcut.keyName = text;
    return shortcut;
}

// The properties of one group of the settings: those that came with the desktop, and the user's own.
struct XfceGroup {
    std::vector<DesktopShortcut> builtIn;
    std::vector<DesktopShortcut> custom;
    bool customReplacesBuiltIn = false;
};

} // namespace

std::vector<DesktopShortcut> xfceShortcuts(std::string_view settings) {
    std::map<std::string, XfceGroup> groups;
    std::vector<std::string> path; // names of the properties around the tag
    XmlTags tags(settings);
    while (const std::optional<XmlTag> tag = tags.next()) {
        if (tag->name != "property")
            continue;
        if (tag->kind == XmlTag::Kind::End) {
            if (!path.empty())
                path.pop_back();
            continue;
        }
        const std::string name = tag->attribute("name");
        const bool isInGroup = path.size() == 2 && (path[0] == "commands" || path[0] == "xfwm4")
            && (path[1] == "default" || path[1] == "custom");
        if (isInGroup && name == "override") {
            groups[path[0]].customReplacesBuiltIn |= path[1] == "custom" && tag->attribute("value") == "true";
        } else if (isInGroup) {
            std::optional<DesktopShortcut> shortcut = xfceCombination(name);
            if (shortcut) {
                shortcut->isEnabled = tag->attribute("type") != "empty" && !tag->attribute("value").empty();
                XfceGroup& group = groups[path[0]];
                (path[1] == "custom" ? group.custom : group.builtIn).push_back(std::move(*shortcut));
            }
        }
        if (tag->kind == XmlTag::Kind::Start)
            path.push_back(name);
    }

    std::vector<DesktopShortcut> shortcuts;
    for (auto& [name, group] : groups) {
        if (!group.customReplacesBuiltIn)
            shortcuts.insert(shortcuts.end(), group.builtIn.begin(), group.builtIn.end());
        shortcuts.insert(shortcuts.end(), group.custom.begin(), group.custom.end());
    }
    return shortcuts;
}

std::vector<DesktopShortcut> openboxShortcuts(std::string_view settings) {
    std::vector<DesktopShortcut> shortcuts;
    int depth = 0;
    XmlTags tags(settings);
    while (const std::optional<XmlTag> tag = tags.next()) {
        if (tag->name != "keybind")
            continue;
        if (tag->kind == XmlTag::Kind::End) {
            depth = std::max(0, depth - 1);
            continue;
        }
        // A binding within another one continues its chain.
        if (depth == 0) {
            if (std::optional<DesktopShortcut> shortcut = openboxCombination(tag->attribute("key")))
                shortcuts.push_back(std::move(*shortcut));
        }
        if (tag->kind == XmlTag::Kind::Start)
            ++depth;
    }
    return shortcuts;
}

} // namespace tarragon
