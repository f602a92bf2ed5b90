#include "cli/MirrorPrinter.h"

#include "cli/PrintableText.h"

#include <nlohmann/json.hpp>

#include <algorithm>

namespace tarragon {

namespace {

constexpr std::size_t TitleColumns = 40;
constexpr std::size_t ShortcutColumns = 20;

// Bytes that do not begin a character of UTF-8 take no column.
std::size_t columnsOf(const std::string& text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char byte) { return (byte & 0xC0) != 0x80; }));
}

std::string padded(std::string text, std::size_t columns) {
    const std::size_t used = columnsOf(text);
    text.append(used < columns ? columns - used : 1, ' ');
    return text;
}

void appendLines(const std::vector<MirrorNode>& nodes, std::size_t level, std::string& text) {
    for (const MirrorNode& node : nodes) {
        const MenuItem& item = *node.item;
        const std::string indent(level * 2, ' ');
        if (item.isSeparatorItem()) {
            text += "  " + indent + "----\n";
            continue;
        }
        text += item.state() ? "✓ " : "  ";
        text += padded(indent + printableLine(item.title()) + (item.isEnabled() ? "" : " (disabled)"), TitleColumns);
        text += padded(printableLine(node.shortcut), ShortcutColumns) + printableLine(node.key) + "\n";
        appendLines(node.items, level + 1, text);
    }
}

nlohmann::ordered_json asJson(const std::vector<MirrorNode>& nodes) {
    auto array = nlohmann::ordered_json::array();
    for (const MirrorNode& node : nodes) {
        array.push_back({
            {"title", node.item->title()},
            {"key", node.key},
            {"enabled", node.item->isEnabled()},
            {"checked", node.item->state()},
            {"separator", node.item->isSeparatorItem()},
            {"shortcut", node.shortcut},
            {"items", asJson(node.items)},
        });
    }
    return array;
}

} // namespace

std::string mirrorAsText(const std::vector<MirrorNode>& nodes) {
    std::string text;
    appendLines(nodes, 0, text);
    return text;
}

std::string mirrorAsJson(const std::vector<MirrorNode>& nodes) {
    constexpr int Indentation = 2;
    return asJson(nodes).dump(Indentation, ' ', false, nlohmann::ordered_json::error_handler_t::replace) + "\n";
}

} // namespace tarragon
