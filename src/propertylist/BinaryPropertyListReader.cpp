#include "propertylist/BinaryPropertyListReader.h"

#include "platform/UnicodeText.h"

#include <algorithm>
#include <bit>

namespace tarragon {

namespace {

constexpr std::string_view Header = "bplist00";
constexpr std::size_t TrailerSize = 32;

// In bytes of text. The other steps are priced by the time and memory that they take compared with one byte.
constexpr std::size_t WorkLimit = std::size_t{4} << 20U;
constexpr std::size_t WorkPerObject = 32;

} // namespace

std::optional<BinaryPropertyListReader> BinaryPropertyListReader::open(std::span<const std::uint8_t> bytes) {
    BinaryPropertyListReader reader(bytes);
    if (!reader.readTrailer())
        return std::nullopt;
    return reader;
}

bool BinaryPropertyListReader::readTrailer() {
    if (_bytes.size() < Header.size() + TrailerSize || !std::equal(Header.begin(), Header.end(), _bytes.begin()))
        return false;
    const std::size_t trailer = _bytes.size() - TrailerSize;
    _offsetSize = _bytes[trailer + 6];
    _referenceSize = _bytes[trailer + 7];
    if (_offsetSize < 1 || _offsetSize > 8 || _referenceSize < 1 || _referenceSize > 8)
        return false;
    _numberOfObjects = bigEndian(trailer + 8, 8);
    _top = bigEndian(trailer + 16, 8);
    _offsetTable = bigEndian(trailer + 24, 8);
    if (_offsetTable < Header.size() || _offsetTable > trailer)
        return false;
    if (_numberOfObjects > (trailer - _offsetTable) / _offsetSize || _top >= _numberOfObjects)
        return false;
    _remainingWork = WorkLimit;
    return true;
}

bool BinaryPropertyListReader::spend(std::size_t work) const {
    if (work > _remainingWork) {
        _remainingWork = 0;
        _damaged = true;
        return false;
    }
    _remainingWork -= work;
    return true;
}

std::nullopt_t BinaryPropertyListReader::damaged() const {
    _damaged = true;
    return std::nullopt;
}

std::uint64_t BinaryPropertyListReader::bigEndian(std::size_t offset, unsigned size) const {
    std::uint64_t value = 0;
    for (unsigned index = 0; index < size; ++index)
        value = (value << 8U) | _bytes[offset + index];
    return value;
}

// Integers of up to four bytes are unsigned, those of eight are signed, and those of sixteen hold what eight cannot.
std::optional<BinaryPropertyListReader::Object> BinaryPropertyListReader::integerAt(std::size_t offset) const {
    if (offset >= _offsetTable || (_bytes[offset] & 0xF0U) != 0x10)
        return std::nullopt;
    const unsigned exponent = _bytes[offset] & 0x0FU;
    if (exponent > 4)
        return std::nullopt;
    const unsigned size = 1U << exponent;
    if (_offsetTable - offset - 1 < size)
        return std::nullopt;
    constexpr unsigned ValueSize = 8;
    Object object;
    object.begin = offset + 1 + size;
    object.integer = bigEndian(offset + 1, size);
    if (size <= ValueSize)
        object.kind = Kind::Integer;
    else if (bigEndian(offset + 1, ValueSize) == 0)
        object.kind = Kind::LargeInteger;
    return object;
}

// Reads the count that follows a marker and sets the contents' beginning, which is behind it.
bool BinaryPropertyListReader::readCount(Object& object, unsigned nibble) const {
    constexpr unsigned CountFollows = 15;
    if (nibble != CountFollows) {
        object.count = nibble;
        return true;
    }
    const std::optional<Object> count = integerAt(object.begin);
    if (!count || count->kind != Kind::Integer || count->integer > _bytes.size())
        return false;
    object.count = count->integer;
    object.begin = count->begin;
    return true;
}

bool BinaryPropertyListReader::readExtent(Object& object, unsigned nibble, std::size_t bytesPerUnit) const {
    return readCount(object, nibble) && object.count <= (_offsetTable - object.begin) / bytesPerUnit;
}

std::optional<BinaryPropertyListReader::Object> BinaryPropertyListReader::object(std::uint64_t index) const {
    if (index >= _numberOfObjects || !spend(WorkPerObject))
        return damaged();
    const std::uint64_t offset = bigEndian(_offsetTable + index * _offsetSize, _offsetSize);
    if (offset < Header.size() || offset >= _offsetTable)
        return damaged();

    const unsigned nibble = _bytes[offset] & 0x0FU;
    Object object;
    object.begin = offset + 1;
    const std::size_t remaining = _offsetTable - object.begin;
    bool sound = true;
    switch (_bytes[offset] >> 4U) {
    case 0x0:
        if (nibble == 8 || nibble == 9) {
            object.kind = Kind::Boolean;
            object.integer = nibble - 8;
        }
        break;
    case 0x1: {
        const std::optional<Object> integer = integerAt(offset);
        return integer ? integer : damaged();
    }
    case 0x2:
        sound = (nibble == 2 || nibble == 3) && remaining >= (1U << nibble);
        if (sound) {
            object.kind = Kind::Real;
            if (nibble == 2)
                object.real = std::bit_cast<float>(static_cast<std::uint32_t>(bigEndian(object.begin, 4)));
            else
                object.real = std::bit_cast<double>(bigEndian(object.begin, 8));
        }
        break;
    case 0x3:
        sound = remaining >= 8;
        if (sound) {
            object.kind = Kind::Date;
            object.real = std::bit_cast<double>(bigEndian(object.begin, 8));
        }
        break;
    case 0x4:
        object.kind = Kind::Bytes;
        sound = readExtent(object, nibble, 1);
        break;
    case 0x5:
        object.kind = Kind::AsciiString;
        sound = readExtent(object, nibble, 1);
        break;
    case 0x6:
        object.kind = Kind::Utf16String;
        sound = readExtent(object, nibble, 2);
        break;
    case 0x8:
        object.kind = Kind::Uid;
        sound = nibble < 8 && remaining > nibble;
        if (sound)
            object.integer = bigEndian(object.begin, nibble + 1);
        break;
    case 0xA:
    case 0xC:
        object.kind = Kind::Array;
        sound = readExtent(object, nibble, _referenceSize);
        break;
    case 0xD:
        object.kind = Kind::Dictionary;
        sound = readExtent(object, nibble, std::size_t{2} * _referenceSize);
        break;
    default:
        sound = false;
    }
    if (!sound)
        return damaged();
    return object;
}

std::optional<BinaryPropertyListReader::Object> BinaryPropertyListReader::reference(
    const Object& container, std::size_t index) const {
    return object(bigEndian(container.begin + index * _referenceSize, _referenceSize));
}

std::optional<BinaryPropertyListReader::Object> BinaryPropertyListReader::element(
    const Object& array, std::size_t index) const {
    if (array.kind != Kind::Array || index >= array.count)
        return damaged();
    return reference(array, index);
}

std::optional<std::pair<BinaryPropertyListReader::Object, BinaryPropertyListReader::Object>>
BinaryPropertyListReader::entry(const Object& dictionary, std::size_t index) const {
    if (dictionary.kind != Kind::Dictionary || index >= dictionary.count)
        return damaged();
    const std::optional<Object> key = reference(dictionary, index);
    const std::optional<Object> value = key ? reference(dictionary, dictionary.count + index) : std::nullopt;
    return value ? std::optional(std::pair(*key, *value)) : std::nullopt;
}

std::optional<BinaryPropertyListReader::Object> BinaryPropertyListReader::find(
    const Object& dictionary, std::string_view key) const {
    if (dictionary.kind != Kind::Dictionary)
        return std::nullopt;
    for (std::size_t index = 0; index < dictionary.count; ++index) {
        const std::optional<Object> candidate = reference(dictionary, index);
        if (!candidate)
            return std::nullopt;
        if (isString(*candidate, key))
            return reference(dictionary, dictionary.count + index);
    }
    return std::nullopt;
}

std::optional<std::string> BinaryPropertyListReader::string(const Object& object) const {
    constexpr std::size_t LargestUtf8PerUnit = 3;
    if (object.kind == Kind::AsciiString) {
        if (!spend(object.count))
            return std::nullopt;
        return wellFormedText({reinterpret_cast<const char*>(_bytes.data()) + object.begin, object.count});
    }
    if (object.kind != Kind::Utf16String || !spend(object.count * LargestUtf8PerUnit))
        return std::nullopt;
    std::u32string characters;
    characters.reserve(object.count);
    for (std::size_t index = 0; index < object.count; ++index) {
        const auto unit = static_cast<char32_t>(bigEndian(object.begin + index * 2, 2));
        const bool completesPair =
            (unit & 0xFC00U) == 0xDC00 && !characters.empty() && (characters.back() & 0xFFFFFC00U) == 0xD800;
        if (completesPair)
            characters.back() = 0x10000 + ((characters.back() - 0xD800) << 10U) + (unit - 0xDC00);
        else
            characters += unit;
    }
    return utf8Text(characters);
}

bool BinaryPropertyListReader::isString(const Object& object, std::string_view ascii) const {
    if (object.count != ascii.size())
        return false;
    if (object.kind == Kind::AsciiString)
        return std::equal(ascii.begin(), ascii.end(), _bytes.begin() + static_cast<std::ptrdiff_t>(object.begin));
    if (object.kind != Kind::Utf16String)
        return false;
    for (std::size_t index = 0; index < object.count; ++index) {
        if (bigEndian(object.begin + index * 2, 2) != static_cast<unsigned char>(ascii[index]))
            return false;
    }
    return true;
}

std::optional<std::span<const std::uint8_t>> BinaryPropertyListReader::data(const Object& object) const {
    if (object.kind != Kind::Bytes)
        return std::nullopt;
    return _bytes.subspan(object.begin, object.count);
}

} // namespace tarragon
