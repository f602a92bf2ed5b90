#include "ignore/BinaryPropertyListWriter.h"

#include "platform/UnicodeText.h"

#include <algorithm>
#include <bit>
#include <string_view>

namespace tarragon {

namespace {

constexpr std::string_view Header = "bplist00";

// High halves of the marker byte that begins every value.
constexpr std::uint8_t IntegerMarker = 0x10;
constexpr std::uint8_t RealMarker = 0x20;
constexpr std::uint8_t DataMarker = 0x40;
constexpr std::uint8_t AsciiMarker = 0x50;
constexpr std::uint8_t Utf16Marker = 0x60;
constexpr std::uint8_t UidMarker = 0x80;
constexpr std::uint8_t ArrayMarker = 0xA0;
constexpr std::uint8_t DictionaryMarker = 0xD0;

void appendBigEndian(Data& bytes, std::uint64_t value, unsigned size) {
    for (unsigned index = size; index-- > 0;)
        bytes.push_back(static_cast<std::uint8_t>(value >> (8 * index)));
}

// The smallest of 1, 2, 4 and 8 bytes that holds the value.
unsigned bytesNeeded(std::uint64_t value) {
    if (value <= 0xFF)
        return 1;
    if (value <= 0xFFFF)
        return 2;
    return value <= 0xFFFFFFFF ? 4 : 8;
}

// Negative integers always take eight bytes: shorter ones are read as unsigned.
Data encodedInteger(std::int64_t value) {
    const unsigned size = value < 0 ? 8 : bytesNeeded(static_cast<std::uint64_t>(value));
    Data bytes{static_cast<std::uint8_t>(IntegerMarker | static_cast<unsigned>(std::countr_zero(size)))};
    appendBigEndian(bytes, static_cast<std::uint64_t>(value), size);
    return bytes;
}

// A marker with the number of elements; 15 and more follow as an integer of their own.
Data markerWithCount(std::uint8_t marker, std::size_t count) {
    constexpr std::size_t CountFollows = 15;
    if (count < CountFollows)
        return {static_cast<std::uint8_t>(marker | count)};
    Data bytes{static_cast<std::uint8_t>(marker | CountFollows)};
    const Data encodedCount = encodedInteger(static_cast<std::int64_t>(count));
    bytes.insert(bytes.end(), encodedCount.begin(), encodedCount.end());
    return bytes;
}

std::u16string utf16Text(std::u32string_view characters) {
    std::u16string text;
    for (const char32_t character : characters) {
        if (character < 0x10000) {
            text += static_cast<char16_t>(character);
        } else {
            text += static_cast<char16_t>(0xD800 + ((character - 0x10000) >> 10U));
            text += static_cast<char16_t>(0xDC00 + ((character - 0x10000) & 0x3FFU));
        }
    }
    return text;
}

Data encodedString(const std::string& text) {
    const std::u32string characters = charactersOf(text);
    const bool ascii =
        std::all_of(characters.begin(), characters.end(), [](char32_t character) { return character < 0x80; });
    if (ascii) {
        Data bytes = markerWithCount(AsciiMarker, text.size());
        bytes.insert(bytes.end(), text.begin(), text.end());
        return bytes;
    }
    const std::u16string units = utf16Text(characters);
    Data bytes = markerWithCount(Utf16Marker, units.size());
    for (const char16_t unit : units)
        appendBigEndian(bytes, unit, 2);
    return bytes;
}

} // namespace

BinaryPropertyListWriter::Index BinaryPropertyListWriter::add(Data bytes, std::vector<Index> references) {
    _values.push_back({std::move(bytes), std::move(references)});
    return _values.size() - 1;
}

BinaryPropertyListWriter::Index BinaryPropertyListWriter::addBoolean(bool value) {
    return add({static_cast<std::uint8_t>(value ? 0x09 : 0x08)});
}

BinaryPropertyListWriter::Index BinaryPropertyListWriter::addInteger(std::int64_t value) {
    return add(encodedInteger(value));
}

BinaryPropertyListWriter::Index BinaryPropertyListWriter::addReal(double value) {
    Data bytes{RealMarker | 3};
    appendBigEndian(bytes, std::bit_cast<std::uint64_t>(value), 8);
    return add(std::move(bytes));
}

BinaryPropertyListWriter::Index BinaryPropertyListWriter::addString(const std::string& text) {
    const auto [known, isNew] = _strings.try_emplace(text, _values.size());
    return isNew ? add(encodedString(text)) : known->second;
}

BinaryPropertyListWriter::Index BinaryPropertyListWriter::addData(const Data& data) {
    Data bytes = markerWithCount(DataMarker, data.size());
    bytes.insert(bytes.end(), data.begin(), data.end());
    return add(std::move(bytes));
}

BinaryPropertyListWriter::Index BinaryPropertyListWriter::addUid(std::uint64_t uid) {
    const unsigned size = bytesNeeded(uid);
    Data bytes{static_cast<std::uint8_t>(UidMarker | (size - 1))};
    appendBigEndian(bytes, uid, size);
    return add(std::move(bytes));
}

BinaryPropertyListWriter::Index BinaryPropertyListWriter::addArray(std::vector<Index> elements) {
    Data bytes = markerWithCount(ArrayMarker, elements.size());
    return add(std::move(bytes), std::move(elements));
}

BinaryPropertyListWriter::Index BinaryPropertyListWriter::addDictionary(
    const std::vector<std::pair<Index, Index>>& entries) {
    std::vector<Index> references;
    references.reserve(entries.size() * 2);
    for (const auto& entry : entries)
        references.push_back(entry.first);
    for (const auto& entry : entries)
        references.push_back(entry.second);
    return add(markerWithCount(DictionaryMarker, entries.size()), std::move(references));
}

Data BinaryPropertyListWriter::write(Index top) const {
    const unsigned referenceSize = bytesNeeded(_values.size());
    Data bytes(Header.begin(), Header.end());
    std::vector<std::uint64_t> offsets;
    offsets.reserve(_values.size());
    for (const Value& value : _values) {
        offsets.push_back(bytes.size());
        bytes.insert(bytes.end(), value.bytes.begin(), value.bytes.end());
        for (const Index reference : value.references)
            appendBigEndian(bytes, reference, referenceSize);
    }
    const std::uint64_t offsetTable = bytes.size();
    const unsigned offsetSize = bytesNeeded(offsetTable);
    for (const std::uint64_t offset : offsets)
        appendBigEndian(bytes, offset, offsetSize);

    constexpr unsigned UnusedTrailerBytes = 6;
    bytes.insert(bytes.end(), UnusedTrailerBytes, 0);
    bytes.push_back(static_cast<std::uint8_t>(offsetSize));
    bytes.push_back(static_cast<std::uint8_t>(referenceSize));
    appendBigEndian(bytes, _values.size(), 8);
    appendBigEndian(bytes, top, 8);
    appendBigEndian(bytes, offsetTable, 8);
    return bytes;
}

} // namespace tarragon
