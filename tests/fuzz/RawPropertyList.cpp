#include "fuzz/RawPropertyList.h"

namespace tarragon {

void RawPropertyList::appendBigEndian(Data& bytes, std::uint64_t value, unsigned size) {
    for (unsigned index = size; index-- > 0;)
        bytes.push_back(static_cast<std::uint8_t>(value >> (8 * index)));
}

Data RawPropertyList::marker(std::uint8_t kind, std::uint64_t count) {
    Data bytes{static_cast<std::uint8_t>(kind | 0xFU), 0x13};
    appendBigEndian(bytes, count, 8);
    return bytes;
}

std::uint32_t RawPropertyList::add(Data bytes) {
    _values.push_back(std::move(bytes));
    return static_cast<std::uint32_t>(_values.size() - 1);
}

std::uint32_t RawPropertyList::string(const std::string& text) {
    Data bytes = marker(0x50, text.size());
    bytes.insert(bytes.end(), text.begin(), text.end());
    return add(std::move(bytes));
}

std::uint32_t RawPropertyList::uid(std::uint32_t number) {
    Data bytes{0x83};
    appendBigEndian(bytes, number, 4);
    return add(std::move(bytes));
}

std::uint32_t RawPropertyList::array(const std::vector<std::uint32_t>& elements) {
    Data bytes = marker(0xA0, elements.size());
    for (const std::uint32_t element : elements)
        appendBigEndian(bytes, element, 4);
    return add(std::move(bytes));
}

std::uint32_t RawPropertyList::dictionary(const std::vector<std::pair<std::uint32_t, std::uint32_t>>& entries) {
    Data bytes = marker(0xD0, entries.size());
    for (const auto& entry : entries)
        appendBigEndian(bytes, entry.first, 4);
    for (const auto& entry : entries)
        appendBigEndian(bytes, entry.second, 4);
    return add(std::move(bytes));
}

std::uint32_t RawPropertyList::archive(const std::vector<std::uint32_t>& objects, std::uint32_t root) {
    const std::uint32_t top = dictionary({{string("root"), uid(root)}});
    Data version{0x12};
    appendBigEndian(version, 100000, 4);
    return dictionary({
        {string("$version"), add(std::move(version))},
        {string("$archiver"), string("NSKeyedArchiver")},
        {string("$top"), top},
        {string("$objects"), array(objects)},
    });
}

Data RawPropertyList::write(std::uint64_t top) const {
    Data bytes{'b', 'p', 'l', 'i', 's', 't', '0', '0'};
    std::vector<std::size_t> offsets;
    for (const Data& value : _values) {
        offsets.push_back(bytes.size());
        bytes.insert(bytes.end(), value.begin(), value.end());
    }
    const std::size_t offsetTable = bytes.size();
    for (const std::size_t offset : offsets)
        appendBigEndian(bytes, offset, 4);
    appendBigEndian(bytes, 0, 6);
    bytes.push_back(4);
    bytes.push_back(4);
    appendBigEndian(bytes, claimedObjects ? claimedObjects : _values.size(), 8);
    appendBigEndian(bytes, top, 8);
    appendBigEndian(bytes, offsetTable, 8);
    return bytes;
}

} // namespace tarragon
