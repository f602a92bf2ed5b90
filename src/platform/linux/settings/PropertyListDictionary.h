#pragma once

#include "platform/Defaults.h"
#include "propertylist/PropertyListNode.h"

#include <functional>
#include <map>
#include <optional>
#include <string>
#include <string_view>

namespace tarragon {

using PropertyListValues = std::map<std::string, DefaultsValue, std::less<>>;

// The dictionary at the root of a property list. It keeps entries of kinds that settings do not have, such as dates and
// arrays, as they are.
class PropertyListDictionary {
public:
    PropertyListDictionary();
    // From XML or the binary form; nothing when the contents are damaged or hold something other than a dictionary.
    [[nodiscard]] static std::optional<PropertyListDictionary> parse(std::string_view contents);

    std::string xml() const;
    // The entries that are settings.
    PropertyListValues values() const;

    // True when the entry has changed by it.
    bool set(const std::string& key, const DefaultsValue& value);
    bool remove(const std::string& key);

    // False for text with a null byte, which a property list cannot hold.
    static bool canHold(const DefaultsValue& value);

private:
    explicit PropertyListDictionary(PropertyListNode dictionary);
    static PropertyListNode nodeOf(const DefaultsValue& value);

    PropertyListNode _dictionary;
};

} // namespace tarragon
