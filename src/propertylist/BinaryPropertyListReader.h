#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace tarragon {

// Looks into a property list in its binary form, without unpacking it: only what is asked for is read. Made for
// untrusted bytes. A question about a damaged place is answered with nothing, and so is every question once the work
// done would exceed a bound that no honest list comes near: a few bytes can claim, or refer to, any number of objects.
// Used by one thread at a time.
class BinaryPropertyListReader {
public:
    // Large integers are those beyond the signed 64-bit ones, dates are seconds since the beginning of 2001, and sets
    // count as arrays.
    enum class Kind {
        Boolean,
        Integer,
        LargeInteger,
        Real,
        Date,
        Bytes,
        AsciiString,
        Utf16String,
        Uid,
        Array,
        Dictionary,
        Other
    };

    struct Object {
        Kind kind = Kind::Other;
        std::uint64_t integer = 0; // the bits of a boolean, an integer or a UID
        double real = 0; // a real number or a date
        std::size_t begin = 0; // of the contents, in bytes from the start of the list
        std::size_t count = 0; // bytes, characters, elements or entries
    };

    // Nothing when the bytes are no binary property list. They stay the caller's and outlive the reader.
    [[nodiscard]] static std::optional<BinaryPropertyListReader> open(std::span<const std::uint8_t> bytes);

    std::optional<Object> top() const { return object(_top); }

    // The element at an index below the array's count.
    std::optional<Object> element(const Object& array, std::size_t index) const;
    // Key and value of the entry at an index below the dictionary's count.
    std::optional<std::pair<Object, Object>> entry(const Object& dictionary, std::size_t index) const;
    // The value under a key; nothing when there is none.
    std::optional<Object> find(const Object& dictionary, std::string_view key) const;
    // The text of a string in UTF-8; nothing for objects of other kinds.
    std::optional<std::string> string(const Object& object) const;
    bool isString(const Object& object, std::string_view ascii) const;
    std::optional<std::span<const std::uint8_t>> data(const Object& object) const;

    // True once a question has met a damaged place or the bound: nothing learnt from the list is to be relied on.
    bool isDamaged() const { return _damaged; }

private:
    explicit BinaryPropertyListReader(std::span<const std::uint8_t> bytes)
        : _bytes(bytes) { }

    bool readTrailer();
    std::uint64_t bigEndian(std::size_t offset, unsigned size) const;
    std::optional<Object> object(std::uint64_t index) const;
    std::optional<Object> reference(const Object& container, std::size_t index) const;
    std::optional<Object> integerAt(std::size_t offset) const;
    bool readCount(Object& object, unsigned nibble) const;
    bool readExtent(Object& object, unsigned nibble, std::size_t bytesPerUnit) const;
    bool spend(std::size_t work) const;
    std::nullopt_t damaged() const;

    std::span<const std::uint8_t> _bytes;
    unsigned _offsetSize = 0;
    unsigned _referenceSize = 0;
    std::uint64_t _numberOfObjects = 0;
    std::uint64_t _top = 0;
    std::uint64_t _offsetTable = 0;
    mutable std::size_t _remainingWork = 0;
    mutable bool _damaged = false;
};

} // namespace tarragon
