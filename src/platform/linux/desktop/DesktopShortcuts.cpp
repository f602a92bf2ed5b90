#include "platform/linux/desktop/DesktopShortcuts.h"

#include "platform/HotKeys.h"

#include <algorithm>
#include <array>
#include <optional>
#include <utility>

#include <pugixml.hpp>

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

// "close_window" and "CloseWindow" give "Close window".
std::string readableAction(std::string_view name) {
    std::string words;
    for (const char character : name) {
        const bool isCapital = character >= 'A' && character <= 'Z';
        if (isCapital && !words.empty() && words.back() != ' ')
            words += ' ';
        words += character == '_' ? ' ' : static_cast<char>(isCapital ? character - 'A' + 'a' : character);
    }
    if (!words.empty() && words.front() >= 'a' && words.front() <= 'z')
        words.front() = static_cast<char>(words.front() - 'a' + 'A');
    return words;
}

// "Xfce: Close window", or the name alone where nothing is known of the purpose.
std::string ownerNamed(std::string_view desktop, const std::string& purpose) {
    std::string owner(desktop);
    if (!purpose.empty())
        owner.append(": ").append(purpose);
    return owner;
}

// What could be read of an XML text: all of it, or what comes before a damaged place.
pugi::xml_document documentOf(std::string_view text) {
    pugi::xml_document document;
    document.load_buffer(text.data(), text.size());
    return document;
}

// Says beside the combinations whether the user's own stand for those that came with the desktop.
constexpr const char* Override = "override";

pugi::xml_node property(const pugi::xml_node& parent, const char* name) {
    return parent.find_child_by_attribute("property", "name", name);
}

// The window manager's actions are named close_window_key; anything else is a command line.
std::string xfcePurpose(std::string_view value) {
    constexpr std::string_view ActionSuffix = "_key";
    if (!value.ends_with(ActionSuffix))
        return std::string(value);
    return readableAction(value.substr(0, value.size() - ActionSuffix.size()));
}

void appendXfceShortcuts(const pugi::xml_node& properties, std::vector<DesktopShortcut>& shortcuts) {
    for (const pugi::xml_node& node : properties.children("property")) {
        const std::string_view name = node.attribute("name").value();
        std::optional<DesktopShortcut> shortcut = xfceCombination(name);
        if (!shortcut || name == Override)
            continue;
        const std::string_view value = node.attribute("value").value();
        shortcut->isEnabled = std::string_view(node.attribute("type").value()) != "empty" && !value.empty();
        if (shortcut->isEnabled)
            shortcut->owner = ownerNamed("Xfce", xfcePurpose(value));
        shortcuts.push_back(std::move(*shortcut));
    }
}

// What the first action of a binding does; empty for one that only begins a chain.
std::string openboxPurpose(const pugi::xml_node& binding) {
    const pugi::xml_node action = binding.child("action");
    for (const char* const command : {"command", "execute"}) {
        if (const std::string_view text = action.child_value(command); !text.empty())
            return std::string(text);
    }
    std::string purpose = readableAction(action.attribute("name").value());
    if (const std::string_view menu = action.child_value("menu"); !menu.empty())
        purpose.append(" (").append(menu).append(")");
    return purpose;
}

class OpenboxBindings : public pugi::xml_tree_walker {
public:
    std::vector<DesktopShortcut> shortcuts;

    bool for_each(pugi::xml_node& node) override {
        static constexpr std::string_view Binding = "keybind";
        // A binding within another one continues its chain.
        if (node.name() == Binding && node.parent().name() != Binding) {
            if (std::optional<DesktopShortcut> shortcut = openboxCombination(node.attribute("key").value())) {
                shortcut->owner = ownerNamed("Openbox", openboxPurpose(node));
                shortcuts.push_back(std::move(*shortcut));
            }
        }
        return true;
    }
};

} // namespace

std::vector<DesktopShortcut> xfceShortcuts(std::string_view settings) {
    const pugi::xml_document document = documentOf(settings);
    std::vector<DesktopShortcut> shortcuts;
    for (const char* const group : {"commands", "xfwm4"}) {
        const pugi::xml_node properties = property(document.child("channel"), group);
        const pugi::xml_node custom = property(properties, "custom");
        if (std::string_view(property(custom, Override).attribute("value").value()) != "true")
            appendXfceShortcuts(property(properties, "default"), shortcuts);
        appendXfceShortcuts(custom, shortcuts);
    }
    return shortcuts;
}

std::vector<DesktopShortcut> openboxShortcuts(std::string_view settings) {
    pugi::xml_document document = documentOf(settings);
    OpenboxBindings bindings;
    document.traverse(bindings);
    return bindings.shortcuts;
}

} // namespace tarragon
