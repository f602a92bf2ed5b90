#pragma once

#include "platform/Defaults.h"

#include <cstdint>
#include <string>
#include <vector>

namespace tarragon {

// Builds binary property lists byte by byte, sound or not. Values refer to each other by their number; all references
// and offsets take four bytes.
class RawPropertyList {
public:
    std::uint32_t add(Data bytes);
    std::uint32_t string(const std::string& text);
    std::uint32_t uid(std::uint32_t number);
    std::uint32_t array(const std::vector<std::uint32_t>& elements);
    std::uint32_t dictionary(const std::vector<std::pair<std::uint32_t, std::uint32_t>>& entries);
    // The dictionary of a keyed archive around its objects, with the root object's number.
    std::uint32_t archive(const std::vector<std::uint32_t>& objects, std::uint32_t root);

    // What the trailer says beside the truth.
    std::uint64_t claimedObjects = 0; // 0 for the truth
    Data write(std::uint64_t top) const;

    static Data marker(std::uint8_t kind, std::uint64_t count);
    static void appendBigEndian(Data& bytes, std::uint64_t value, unsigned size);

private:
    std::vector<Data> _values;
};

} // namespace tarragon
