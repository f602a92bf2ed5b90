#pragma once

#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace tarragon {

struct XmlTag {
    enum class Kind { Start, End, Empty };
    Kind kind = Kind::Start;
    std::string name;
    std::map<std::string, std::string> attributes; // with entities resolved

    // Empty when there is no such attribute.
    std::string attribute(const std::string& attributeName) const;
};

// Goes through the tags of an XML text in order. Text between tags, comments and instructions are passed over; damaged
// places are passed over as well, up to the next tag that can be read.
class XmlTags {
public:
    // The text stays the caller's and outlives the reader.
    explicit XmlTags(std::string_view text)
        : _rest(text) { }

    // Nothing at the end.
    std::optional<XmlTag> next();

private:
    bool passOver(std::string_view opening, std::string_view closing);

    std::string_view _rest;
};

} // namespace tarragon
