#include "propertylist/PropertyListNode.h"

#include "platform/UnicodeText.h"
#include "propertylist/BinaryPropertyListReader.h"

#include <cmath>
#include <cstddef>
#include <cstdlib>
#include <limits>
#include <optional>
#include <utility>

#include <plist/plist.h>

namespace tarragon {

namespace {

// The library makes integers beyond the signed ones only when it reads them.
PropertyListNode largeIntegerNode(std::uint64_t value) {
    const std::string xml = "<plist version=\"1.0\"><integer>" + std::to_string(value) + "</integer></plist>";
    plist_t node = nullptr;
    plist_from_xml(xml.data(), static_cast<std::uint32_t>(xml.size()), &node);
    return PropertyListNode(node);
}

PropertyListNode dateNode(double seconds) {
    double whole = 0;
    const double fraction = std::modf(seconds, &whole);
    if (!(std::abs(whole) < std::numeric_limits<std::int32_t>::max()))
        return nullptr;
    constexpr double Microseconds = 1e6;
    return PropertyListNode(
        plist_new_date(static_cast<std::int32_t>(whole), static_cast<std::int32_t>(fraction * Microseconds)));
}

// Makes a value for everything that a list refers to, once for every reference.
class Unpacking {
public:
    explicit Unpacking(std::span<const std::uint8_t> bytes)
        : _reader(BinaryPropertyListReader::open(bytes))
        , _remainingData(bytes.size()) { }

    PropertyListNode top() {
        const std::optional<Object> top = _reader ? _reader->top() : std::nullopt;
        PropertyListNode node = top ? nodeOf(*top, 0) : nullptr;
        return _isExcessive || !_reader || _reader->isDamaged() ? nullptr : std::move(node);
    }

private:
    using Object = BinaryPropertyListReader::Object;
    using Kind = BinaryPropertyListReader::Kind;

    static constexpr int MaximumDepth = 1000;

    bool isHopeless() const { return _isExcessive || _reader->isDamaged(); }

    // nullptr for what is left out, and once there is no hope for the list.
    PropertyListNode nodeOf(const Object& object, int depth) {
        switch (object.kind) {
        case Kind::Boolean:
            return PropertyListNode(plist_new_bool(object.integer != 0 ? 1 : 0));
        case Kind::Integer:
            return PropertyListNode(plist_new_uint(object.integer));
        case Kind::LargeInteger:
            return largeIntegerNode(object.integer);
        case Kind::Real:
            return PropertyListNode(plist_new_real(object.real));
        case Kind::Date:
            return dateNode(object.real);
        case Kind::Bytes:
            return dataNode(object);
        case Kind::AsciiString:
        case Kind::Utf16String: {
            const std::optional<std::string> text = _reader->string(object);
            return text ? PropertyListNode(plist_new_string(propertyListText(*text).c_str())) : nullptr;
        }
        case Kind::Uid:
            return PropertyListNode(plist_new_uid(object.integer));
        case Kind::Array:
            return arrayNode(object, depth);
        case Kind::Dictionary:
            return dictionaryNode(object, depth);
        case Kind::Other:
            return nullptr;
        }
        return nullptr;
    }

    PropertyListNode dataNode(const Object& object) {
        const std::optional<std::span<const std::uint8_t>> data = _reader->data(object);
        // More data than there are bytes: the same ones are referred to again and again.
        if (!data || data->size() > _remainingData) {
            _isExcessive = true;
            return nullptr;
        }
        _remainingData -= data->size();
        return PropertyListNode(plist_new_data(reinterpret_cast<const char*>(data->data()), data->size()));
    }

    PropertyListNode arrayNode(const Object& object, int depth) {
        PropertyListNode array(plist_new_array());
        _isExcessive |= depth > MaximumDepth;
        for (std::size_t index = 0; index < object.count && !isHopeless(); ++index) {
            const std::optional<Object> element = _reader->element(object, index);
            if (PropertyListNode node = element ? nodeOf(*element, depth + 1) : nullptr)
                plist_array_append_item(array.get(), node.release());
        }
        return array;
    }

    PropertyListNode dictionaryNode(const Object& object, int depth) {
        PropertyListNode dictionary(plist_new_dict());
        _isExcessive |= depth > MaximumDepth;
        for (std::size_t index = 0; index < object.count && !isHopeless(); ++index) {
            const auto entry = _reader->entry(object, index);
            const std::optional<std::string> key = entry ? _reader->string(entry->first) : std::nullopt;
            if (PropertyListNode node = key ? nodeOf(entry->second, depth + 1) : nullptr)
                plist_dict_set_item(dictionary.get(), propertyListText(*key).c_str(), node.release());
        }
        return dictionary;
    }

    std::optional<BinaryPropertyListReader> _reader;
    std::size_t _remainingData;
    bool _isExcessive = false;
};

} // namespace

void FreePropertyListNode::operator()(void* node) const {
    plist_free(node);
}

std::string propertyListText(std::string_view text) {
    std::string result;
    for (std::size_t null = text.find('\0'); null != std::string_view::npos; null = text.find('\0')) {
        result += wellFormedText(text.substr(0, null)) + "\uFFFD";
        text.remove_prefix(null + 1);
    }
    return result + wellFormedText(text);
}

Data binaryPropertyList(const PropertyListNode& top) {
    char* bytes = nullptr;
    std::uint32_t length = 0;
    plist_to_bin(top.get(), &bytes, &length);
    Data list(bytes, bytes + length);
    plist_to_bin_free(bytes);
    return list;
}

PropertyListNode propertyListOfBinary(std::span<const std::uint8_t> bytes) {
    return Unpacking(bytes).top();
}

} // namespace tarragon
