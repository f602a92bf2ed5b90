#pragma once

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

namespace tarragon {

// Writes values one after another in the form of the bus protocol, in the byte order of this machine, each at a
// multiple of its size from the beginning.
class DBusWriter {
public:
    static constexpr char ByteOrder = std::endian::native == std::endian::little ? 'l' : 'B';

    DBusWriter() { _bytes.reserve(UsualSize); }

    void appendByte(std::uint8_t value) { _bytes.push_back(static_cast<char>(value)); }
    void appendNumber(std::uint32_t value) {
        align(sizeof value);
        const std::size_t position = _bytes.size();
        _bytes.resize(position + sizeof value);
        setNumber(position, value);
    }
    void appendNumber(std::int32_t value) { appendNumber(static_cast<std::uint32_t>(value)); }
    // Texts, and paths of objects.
    void appendText(std::string_view text) {
        appendNumber(static_cast<std::uint32_t>(text.size()));
        _bytes.append(text);
        _bytes.push_back('\0');
    }
    // Shorter than 256.
    void appendSignature(std::string_view signature) {
        appendByte(static_cast<std::uint8_t>(signature.size()));
        _bytes.append(signature);
        _bytes.push_back('\0');
    }
    void appendBytes(std::string_view bytes) { _bytes.append(bytes); }
    // Where a structure or an entry of a dictionary begins, alignment is 8.
    void align(std::size_t alignment) { _bytes.resize((_bytes.size() + alignment - 1) / alignment * alignment); }

    // Writes over four bytes that are there.
    void setNumber(std::size_t position, std::uint32_t value) {
        std::memcpy(_bytes.data() + position, &value, sizeof value);
    }
    std::size_t size() const { return _bytes.size(); }
    const std::string& bytes() const { return _bytes; }

private:
    static constexpr std::size_t UsualSize = 256;

    std::string _bytes;
};

} // namespace tarragon
