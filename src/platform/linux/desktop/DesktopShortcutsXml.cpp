#include "platform/linux/desktop/DesktopShortcutsXml.h"

#include <algorithm>
#include <array>
#include <utility>

namespace tarragon {

namespace {

constexpr std::string_view Blanks = " \t\r\n";

void passBlanks(std::string_view& text) {
    text.remove_prefix(std::min(text.find_first_not_of(Blanks), text.size()));
}

std::string_view takeName(std::string_view& text) {
    const std::string_view name = text.substr(0, text.find_first_of(" \t\r\n=/<>\"'"));
    text.remove_prefix(name.size());
    return name;
}

std::string withEntitiesResolved(std::string_view text) {
    static constexpr std::array<std::pair<std::string_view, char>, 5> Entities{
        {{"&lt;", '<'}, {"&gt;", '>'}, {"&amp;", '&'}, {"&quot;", '"'}, {"&apos;", '\''}}};
    std::string result;
    while (!text.empty()) {
        const auto* const entity = std::find_if(Entities.begin(), Entities.end(),
            [text](const auto& candidate) { return text.starts_with(candidate.first); });
        result += entity == Entities.end() ? text.front() : entity->second;
        text.remove_prefix(entity == Entities.end() ? 1 : entity->first.size());
    }
    return result;
}

// Reads name="value" pairs up to the end of the tag; false when something else stands there.
bool takeAttributes(std::string_view& text, XmlTag& tag) {
    while (true) {
        passBlanks(text);
        if (text.empty() || text.front() == '/' || text.front() == '>')
            return !text.empty();
        const std::string_view name = takeName(text);
        passBlanks(text);
        if (name.empty() || !text.starts_with('='))
            return false;
        text.remove_prefix(1);
        passBlanks(text);
        const char quote = text.empty() ? '\0' : text.front();
        if (quote != '"' && quote != '\'')
            return false;
        const std::size_t end = text.find(quote, 1);
        if (end == std::string_view::npos)
            return false;
        tag.attributes.emplace(name, withEntitiesResolved(text.substr(1, end - 1)));
        text.remove_prefix(end + 1);
    }
}

// The tag that the text, behind its "<", begins with.
std::optional<XmlTag> takeTag(std::string_view& text) {
    XmlTag tag;
    if (text.starts_with('/')) {
        text.remove_prefix(1);
        tag.kind = XmlTag::Kind::End;
    }
    tag.name = takeName(text);
    if (tag.name.empty() || !takeAttributes(text, tag))
        return std::nullopt;
    if (text.starts_with('/')) {
        text.remove_prefix(1);
        tag.kind = XmlTag::Kind::Empty;
    }
    if (!text.starts_with('>'))
        return std::nullopt;
    text.remove_prefix(1);
    return tag;
}

} // namespace

std::string XmlTag::attribute(const std::string& attributeName) const {
    const auto found = attributes.find(attributeName);
    return found == attributes.end() ? std::string() : found->second;
}

bool XmlTags::passOver(std::string_view opening, std::string_view closing) {
    if (!_rest.starts_with(opening))
        return false;
    const std::size_t end = _rest.find(closing, opening.size());
    _rest.remove_prefix(end == std::string_view::npos ? _rest.size() : end + closing.size());
    return true;
}

std::optional<XmlTag> XmlTags::next() {
    while (true) {
        _rest.remove_prefix(std::min(_rest.find('<'), _rest.size()));
        if (_rest.empty())
            return std::nullopt;
        if (passOver("<!--", "-->") || passOver("<![CDATA[", "]]>") || passOver("<?", "?>") || passOver("<!", ">"))
            continue;
        _rest.remove_prefix(1);
        std::string_view afterTag = _rest;
        if (std::optional<XmlTag> tag = takeTag(afterTag)) {
            _rest = afterTag;
            return tag;
        }
    }
}

} // namespace tarragon
