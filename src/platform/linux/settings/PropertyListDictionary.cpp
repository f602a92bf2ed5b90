#include "platform/linux/settings/PropertyListDictionary.h"

#include "platform/linux/settings/XmlPropertyListLimits.h"

#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <type_traits>
#include <utility>
#include <variant>

#include <plist/plist.h>

namespace tarragon {

namespace {

struct FreeMemory {
    void operator()(void* memory) const { std::free(memory); }
};

template <typename T>
using Memory = std::unique_ptr<T, FreeMemory>;

std::optional<DefaultsValue> settingOf(plist_t node) {
    switch (plist_get_node_type(node)) {
    case PLIST_BOOLEAN: {
        std::uint8_t value = 0;
        plist_get_bool_val(node, &value);
        return value != 0;
    }
    case PLIST_UINT: {
        // Negative numbers come as their two's complement.
        std::uint64_t value = 0;
        plist_get_uint_val(node, &value);
        return static_cast<std::int64_t>(value);
    }
    case PLIST_REAL: {
        double value = 0;
        plist_get_real_val(node, &value);
        return value;
    }
    case PLIST_STRING: {
        char* text = nullptr;
        plist_get_string_val(node, &text);
        const Memory<char> owner(text);
        return std::string(text ? text : "");
    }
    case PLIST_DATA: {
        char* bytes = nullptr;
        std::uint64_t length = 0;
        plist_get_data_val(node, &bytes, &length);
        const Memory<char> owner(bytes);
        return bytes ? Data(bytes, bytes + length) : Data();
    }
    default:
        return std::nullopt;
    }
}

PropertyListNode propertyListOfXml(std::string_view contents) {
    if (contents.size() > std::numeric_limits<std::uint32_t>::max() || !isXmlPropertyListWithinReason(contents))
        return nullptr;
    plist_t root = nullptr;
    plist_from_xml(contents.data(), static_cast<std::uint32_t>(contents.size()), &root);
    return PropertyListNode(root);
}

} // namespace

PropertyListDictionary::PropertyListDictionary()
    : _dictionary(plist_new_dict()) { }

PropertyListDictionary::PropertyListDictionary(PropertyListNode dictionary)
    : _dictionary(std::move(dictionary)) { }

std::optional<PropertyListDictionary> PropertyListDictionary::parse(std::string_view contents) {
    PropertyListNode root = contents.starts_with("bplist")
        ? propertyListOfBinary({reinterpret_cast<const std::uint8_t*>(contents.data()), contents.size()})
        : propertyListOfXml(contents);
    if (!root || plist_get_node_type(root.get()) != PLIST_DICT)
        return std::nullopt;
    return PropertyListDictionary(std::move(root));
}

std::string PropertyListDictionary::xml() const {
    char* text = nullptr;
    std::uint32_t length = 0;
    plist_to_xml(_dictionary.get(), &text, &length);
    const Memory<char> owner(text);
    return text ? std::string(text, length) : std::string();
}

PropertyListValues PropertyListDictionary::values() const {
    PropertyListValues values;
    plist_dict_iter position = nullptr;
    plist_dict_new_iter(_dictionary.get(), &position);
    const Memory<void> owner(position);
    for (;;) {
        char* key = nullptr;
        plist_t node = nullptr;
        plist_dict_next_item(_dictionary.get(), position, &key, &node);
        const Memory<char> keyOwner(key);
        if (!node)
            return values;
        if (auto value = settingOf(node); value && key)
            values.insert_or_assign(key, std::move(*value));
    }
}

bool PropertyListDictionary::set(const std::string& key, const DefaultsValue& value) {
    plist_t present = plist_dict_get_item(_dictionary.get(), key.c_str());
    if (present && settingOf(present) == value)
        return false;
    plist_dict_set_item(_dictionary.get(), key.c_str(), nodeOf(value).release());
    return true;
}

bool PropertyListDictionary::remove(const std::string& key) {
    if (!plist_dict_get_item(_dictionary.get(), key.c_str()))
        return false;
    plist_dict_remove_item(_dictionary.get(), key.c_str());
    return true;
}

bool PropertyListDictionary::canHold(const DefaultsValue& value) {
    const auto* text = std::get_if<std::string>(&value);
    return !text || text->find('\0') == std::string::npos;
}

PropertyListNode PropertyListDictionary::nodeOf(const DefaultsValue& value) {
    const auto make = [](const auto& plain) -> plist_t {
        using Plain = std::decay_t<decltype(plain)>;
        if constexpr (std::is_same_v<Plain, bool>)
            return plist_new_bool(plain ? 1 : 0);
        else if constexpr (std::is_same_v<Plain, std::int64_t>)
            return plist_new_uint(static_cast<std::uint64_t>(plain));
        else if constexpr (std::is_same_v<Plain, double>)
            return plist_new_real(plain);
        else if constexpr (std::is_same_v<Plain, std::string>)
            return plist_new_string(plain.c_str());
        else
            return plist_new_data(reinterpret_cast<const char*>(plain.data()), plain.size());
    };
    return PropertyListNode(std::visit(make, value));
}

} // namespace tarragon
