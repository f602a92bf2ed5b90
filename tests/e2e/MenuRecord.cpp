#include "MenuRecord.h"

#include <algorithm>
#include <array>
#include <map>
#include <sstream>

#include <nlohmann/json.hpp>

namespace tarragon::e2e {

namespace {

std::string withoutTrailingBlanks(std::string text) {
    text.erase(text.find_last_not_of(" \t\n") + 1);
    return text;
}

std::string lowered(std::string text) {
    std::transform(text.begin(), text.end(), text.begin(), [](unsigned char c) { return std::tolower(c); });
    return text;
}

std::string normalKey(const std::string& key) {
    static const std::map<std::string, std::string> names{{"page_up", "PgUp"}, {"pageup", "PgUp"}, {"page up", "PgUp"},
        {"pgup", "PgUp"}, {"page_down", "PgDown"}, {"pagedown", "PgDown"}, {"page down", "PgDown"},
        {"pgdown", "PgDown"}, {"next", "PgDown"}, {"prior", "PgUp"}, {"delete", "Del"}, {"del", "Del"},
        {"insert", "Ins"}, {"ins", "Ins"}, {"escape", "Esc"}, {"esc", "Esc"}, {"return", "Return"}, {"plus", "+"},
        {"minus", "-"}, {"equal", "="}, {"comma", ","}, {"period", "."}, {"slash", "/"}, {"backslash", "\\"},
        {"semicolon", ";"}, {"colon", ":"}, {"bracketleft", "["}, {"bracketright", "]"}, {"braceleft", "{"},
        {"braceright", "}"}, {"parenleft", "("}, {"parenright", ")"}, {"grave", "`"}, {"question", "?"},
        {"exclam", "!"}, {"underscore", "_"}, {"apostrophe", "'"}, {"numbersign", "#"}, {"asterisk", "*"},
        {"less", "<"}, {"greater", ">"}};
    auto found = names.find(lowered(key));
    if (found != names.end())
        return found->second;
    std::string result = lowered(key);
    if (!result.empty())
        result[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(result[0])));
    return result;
}

// "<Primary><Shift>n" or "Ctrl+Shift+N" in its parts, the key last.
std::vector<std::string> partsOfShortcut(std::string text) {
    std::vector<std::string> parts;
    while (text.size() > 1 && text.front() == '<' && text.find('>') != std::string::npos) {
        parts.push_back(text.substr(1, text.find('>') - 1));
        text.erase(0, text.find('>') + 1);
    }
    // The last character is the key's even when it is the plus sign itself.
    for (std::size_t plus = text.find('+'); plus != std::string::npos && plus + 1 < text.size();
         plus = text.find('+')) {
        parts.push_back(text.substr(0, plus));
        text.erase(0, plus + 1);
    }
    parts.push_back(text);
    return parts;
}

bool isMnemonicOf(const std::string& shortcut, const std::string& title) {
    return shortcut.size() == 5 && shortcut.starts_with("Alt+")
        && lowered(title).find(lowered(shortcut.substr(4))) != std::string::npos;
}

std::string describe(
    const std::string& path, const std::string& what, const std::string& expected, const std::string& actual) {
    return path + ": " + what + " is \"" + actual + "\" instead of \"" + expected + "\"";
}

void compareLevel(
    const Menu& expected, const Menu& actual, const std::string& path, std::vector<std::string>& sentences) {
    if (expected.size() != actual.size()) {
        std::ostringstream sentence;
        sentence << path << ": " << actual.size() << " items instead of " << expected.size();
        auto list = [&sentence](const Menu& menu) {
            for (const std::string& title : titlesOf(menu))
                sentence << " [" << title.substr(0, 60) << ']';
        };
        sentence << ", having";
        list(actual);
        sentence << ", expecting";
        list(expected);
        sentences.push_back(sentence.str());
        return;
    }
    for (std::size_t index = 0; index < expected.size(); ++index) {
        const MenuRecord& wanted = expected[index];
        const MenuRecord& found = actual[index];
        std::string itemPath = path + "|" + wanted.title;
        auto yesOrNo = [](bool value) { return std::string(value ? "yes" : "no"); };
        if (wanted.separator != found.separator)
            sentences.push_back(describe(itemPath, "separator", yesOrNo(wanted.separator), yesOrNo(found.separator)));
        if (wanted.separator || found.separator)
            continue;
        if (wanted.title != found.title)
            sentences.push_back(describe(itemPath, "title", wanted.title, found.title));
        if (wanted.enabled != found.enabled)
            sentences.push_back(describe(itemPath, "enabled", yesOrNo(wanted.enabled), yesOrNo(found.enabled)));
        if (wanted.checked != found.checked)
            sentences.push_back(describe(itemPath, "checked", yesOrNo(wanted.checked), yesOrNo(found.checked)));
        if (wanted.shortcut != found.shortcut)
            sentences.push_back(describe(itemPath, "shortcut", wanted.shortcut, found.shortcut));
        compareLevel(wanted.items, found.items, itemPath, sentences);
    }
}

Menu mirrorOfLevel(const Menu& original, const std::string& menuTitle) {
    Menu level;
    for (const MenuRecord& item : original) {
        if (!item.visible)
            continue;
        MenuRecord mirrored;
        // Some toolkits write an item's shortcut behind its name.
        std::size_t tab = item.title.find('\t');
        std::string shortcut = tab == std::string::npos ? item.shortcut : item.title.substr(tab + 1);
        mirrored.title = item.separator ? "" : withoutTrailingBlanks(item.title.substr(0, tab));
        mirrored.separator = item.separator || mirrored.title == "-";
        if (mirrored.separator) {
            mirrored.title.clear();
        } else if (mirrored.title.empty()) {
            continue;
        } else {
            mirrored.enabled = item.enabled;
            mirrored.checked = item.checked;
            mirrored.shortcut = item.items.empty() ? normalShortcut(shortcut, mirrored.title) : "";
            mirrored.items = mirrorOfLevel(item.items, mirrored.title);
        }
        level.push_back(std::move(mirrored));
    }
    // Submenus are attached by title and read through the item that owns them: several items of one title have the
    // first one's submenu, at the first one.
    for (std::size_t index = 0; index < level.size(); ++index) {
        bool repeated = std::any_of(level.begin(), level.begin() + static_cast<std::ptrdiff_t>(index),
            [&](const MenuRecord& earlier) { return !earlier.separator && earlier.title == level[index].title; });
        if (repeated)
            level[index].items.clear();
    }
    if (menuTitle == "Window")
        return level;
    // Neighbours of one title shrink to the first. A removal at the second place ends the pass.
    for (std::size_t index = 1; index < level.size();) {
        if (level[index].title != level[index - 1].title) {
            ++index;
            continue;
        }
        level.erase(level.begin() + static_cast<std::ptrdiff_t>(index));
        if (index == 1)
            break;
        --index;
    }
    return level;
}

} // namespace

Menu menuFromJson(const nlohmann::json& array) {
    Menu menu;
    for (const auto& object : array) {
        MenuRecord record;
        record.title = object.value("title", "");
        record.shortcut = object.value("shortcut", "");
        record.separator = object.value("separator", false);
        record.enabled = object.value("enabled", false);
        record.checked = object.value("checked", false);
        record.focused = object.value("focused", false);
        record.visible = object.value("visible", true);
        record.frame = {
            object.value("x", 0), object.value("y", 0), object.value("width", 0), object.value("height", 0)};
        if (object.contains("items"))
            record.items = menuFromJson(object["items"]);
        menu.push_back(std::move(record));
    }
    return menu;
}

std::string normalShortcut(const std::string& shortcut, const std::string& title) {
    std::string text = shortcut;
    // "mnemonic;path of mnemonics;shortcut"
    std::size_t separator = text.find(';');
    if (separator != std::string::npos && text.size() > 1 && text.find(';', separator + 1) != std::string::npos)
        text = text.substr(text.find(';', separator + 1) + 1);
    if (text.empty() || isMnemonicOf(text, title))
        return {};
    static const std::map<std::string, std::size_t> modifiers{{"super", 0}, {"meta", 0}, {"mod4", 0}, {"ctrl", 1},
        {"control", 1}, {"primary", 1}, {"alt", 2}, {"mod1", 2}, {"shift", 3}};
    static const std::array<std::string, 4> names{"Super+", "Ctrl+", "Alt+", "Shift+"};
    std::array<bool, 4> held{};
    std::vector<std::string> parts = partsOfShortcut(text);
    for (std::size_t index = 0; index + 1 < parts.size(); ++index) {
        auto modifier = modifiers.find(lowered(parts[index]));
        if (modifier != modifiers.end())
            held[modifier->second] = true;
    }
    std::string result;
    for (std::size_t index = 0; index < names.size(); ++index)
        result += held[index] ? names[index] : "";
    return result + normalKey(parts.back());
}

Menu withNormalShortcuts(Menu menu) {
    for (MenuRecord& item : menu) {
        // Without the title nothing is taken for a mnemonic: a shortcut that is shown is meant.
        item.shortcut = normalShortcut(item.shortcut, {});
        item.items = withNormalShortcuts(std::move(item.items));
    }
    return menu;
}

Menu mirrorOf(const Menu& applicationMenu) {
    // The top level itself is never searched for repeats.
    return mirrorOfLevel(applicationMenu, "Window");
}

std::size_t countItems(const Menu& menu) {
    std::size_t count = menu.size();
    for (const MenuRecord& item : menu)
        count += countItems(item.items);
    return count;
}

std::vector<std::string> differences(const Menu& expected, const Menu& actual) {
    std::vector<std::string> sentences;
    compareLevel(expected, actual, "", sentences);
    return sentences;
}

std::vector<std::string> titlesOf(const Menu& menu) {
    std::vector<std::string> titles;
    for (const MenuRecord& item : menu)
        titles.push_back(item.separator ? "-" : withoutTrailingBlanks(item.title));
    return titles;
}

const MenuRecord* itemAtPath(const Menu& menu, const std::vector<std::string>& titles) {
    const Menu* level = &menu;
    const MenuRecord* found = nullptr;
    for (const std::string& title : titles) {
        auto position = std::find_if(level->begin(), level->end(),
            [&](const MenuRecord& item) { return withoutTrailingBlanks(item.title) == title; });
        if (position == level->end())
            return nullptr;
        found = &*position;
        level = &found->items;
    }
    return found;
}

} // namespace tarragon::e2e
