#pragma once

#include "platform/Value.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarragon {

// Attribute values that were read once and hold for as long as this object lives. For a handful of elements.
class AttributeValueCache {
public:
    // nullptr when it was not read yet; a nil value was read and is not there. Valid until the next call.
    const Value* find(const Element& element, std::string_view attribute) const {
        const auto found = std::ranges::find_if(
            _entries, [&](const Entry& entry) { return entry.attribute == attribute && entry.element == element; });
        return found != _entries.end() ? &found->value : nullptr;
    }
    void remember(const Element& element, std::string_view attribute, Value value) {
        _entries.push_back({element, std::string(attribute), std::move(value)});
    }

private:
    struct Entry {
        Element element;
        std::string attribute;
        Value value;
    };

    std::vector<Entry> _entries;
};

} // namespace tarragon
