#pragma once

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace tarragon {

// Reads values one after another in the form of the bus protocol, in the byte order of this machine, each at a multiple
// of its size from the beginning. The bytes are untrusted: once a value is not as it should be, nothing further can be
// read. The texts that it gives are views of the bytes.
class DBusReader {
public:
    DBusReader() = default;
    explicit DBusReader(std::string_view bytes)
        : _bytes(bytes) { }

    // A number of any kind; 0 when there is none.
    template <typename Number>
    Number readNumber() {
        Number value{};
        align(sizeof value);
        const std::string_view bytes = take(sizeof value);
        if (!_failed)
            std::memcpy(&value, bytes.data(), sizeof value);
        return value;
    }
    // Texts, and paths of objects. Empty when there is none.
    std::string_view readText() { return takeTerminated(readNumber<std::uint32_t>()); }
    std::string_view readSignature() { return takeTerminated(readNumber<std::uint8_t>()); }
    // Where a structure or an entry of a dictionary begins, alignment is 8.
    void align(std::size_t alignment) { take((alignment - _position % alignment) % alignment); }

    std::size_t position() const { return _position; }
    // Goes on at this position, which is not before the present one.
    void skipTo(std::size_t position) { take(position - _position); }
    std::size_t remaining() const { return _bytes.size() - _position; }
    bool hasFailed() const { return _failed; }

private:
    std::string_view take(std::size_t count) {
        if (_failed || count > remaining()) {
            _failed = true;
            return {};
        }
        const std::string_view taken = _bytes.substr(_position, count);
        _position += count;
        return taken;
    }
    std::string_view takeTerminated(std::size_t length) {
        const std::string_view text = take(length);
        const std::string_view end = take(1);
        _failed = _failed || end.front() != '\0' || text.find('\0') != std::string_view::npos;
        return _failed ? std::string_view() : text;
    }

    std::string_view _bytes;
    std::size_t _position = 0;
    bool _failed = false;
};

} // namespace tarragon
