#include "platform/linux/settings/PropertyListLimits.h"

#include <cstddef>
#include <cstdint>
#include <utility>
#include <vector>

namespace tarragon {

namespace {

bool isXmlWithinReason(std::string_view contents) {
    constexpr std::size_t Limit = 10000;
    std::size_t count = 0;
    for (const std::string_view tag : {"<array", "<dict"}) {
        for (std::size_t at = contents.find(tag); at != std::string_view::npos && count <= Limit;
             at = contents.find(tag, at + 1))
            ++count;
    }
    return count <= Limit;
}

// Goes through the values of a binary property list as the library would, each as often as it is referred to.
class BinaryPropertyListWalk {
public:
    explicit BinaryPropertyListWalk(std::string_view contents)
        : _contents(contents) { }

    bool isWithinReason() {
        constexpr std::size_t TrailerSize = 32;
        if (_contents.size() < TrailerSize)
            return false;
        const std::size_t trailer = _contents.size() - TrailerSize;
        _offsetSize = static_cast<unsigned char>(_contents[trailer + 6]);
        _referenceSize = static_cast<unsigned char>(_contents[trailer + 7]);
        _offsetTable = number(trailer + 24, 8);
        if (_offsetSize == 0 || _referenceSize == 0)
            return false;
        _waiting = {{number(trailer + 16, 8), 0}};
        for (std::size_t visits = 0; !_waiting.empty(); ++visits) {
            const auto [index, depth] = _waiting.back();
            _waiting.pop_back();
            if (visits > MaximumVisits || depth > MaximumDepth || !visit(index, depth))
                return false;
        }
        return true;
    }

private:
    static constexpr std::size_t MaximumVisits = 100000;
    static constexpr std::size_t MaximumDepth = 1000;

    // 0 outside the file, which is no sound place of anything.
    std::uint64_t number(std::uint64_t place, std::uint64_t size) const {
        if (size > 8 || place > _contents.size() || _contents.size() - place < size)
            return 0;
        std::uint64_t value = 0;
        for (std::uint64_t byte = place; byte < place + size; ++byte)
            value = value << 8U | static_cast<unsigned char>(_contents[byte]);
        return value;
    }

    // Puts what a container holds among the waiting; false when the place is damaged or there is too much of it.
    bool visit(std::uint64_t index, std::size_t depth) {
        if (index >= _contents.size() || _offsetTable >= _contents.size())
            return false;
        std::uint64_t place = number(_offsetTable + index * _offsetSize, _offsetSize);
        if (place == 0 || place >= _contents.size())
            return false;
        const auto marker = static_cast<unsigned char>(_contents[place++]);
        constexpr unsigned Array = 0xA0;
        constexpr unsigned Set = 0xC0;
        constexpr unsigned Dictionary = 0xD0;
        const unsigned kind = marker & 0xF0U;
        if (kind != Array && kind != Set && kind != Dictionary)
            return true;
        std::uint64_t count = marker & 0x0FU;
        if (count == 15) {
            const std::uint64_t size = std::uint64_t{1} << (number(place, 1) & 0x0FU);
            count = number(place + 1, size);
            place += 1 + size;
        }
        if (kind == Dictionary)
            count *= 2;
        if (count > MaximumVisits - _waiting.size())
            return false;
        for (std::uint64_t element = 0; element < count; ++element)
            _waiting.emplace_back(number(place + element * _referenceSize, _referenceSize), depth + 1);
        return true;
    }

    std::string_view _contents;
    std::uint64_t _offsetSize = 0;
    std::uint64_t _referenceSize = 0;
    std::uint64_t _offsetTable = 0;
    std::vector<std::pair<std::uint64_t, std::size_t>> _waiting; // indices and depths
};

} // namespace

bool isPropertyListWithinReason(std::string_view contents) {
    if (contents.starts_with("bplist"))
        return BinaryPropertyListWalk(contents).isWithinReason();
    const std::size_t first = contents.find_first_not_of(" \t\r\n\xEF\xBB\xBF");
    return first != std::string_view::npos && contents[first] == '<' && isXmlWithinReason(contents);
}

} // namespace tarragon
