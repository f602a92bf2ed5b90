#pragma once

#include "ignore/KeyedCoding.h"
#include "ignore/KeyedUnarchiver.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <unordered_map>

namespace tarragon {

// Takes objects out of an archive, which may be untrusted, to put them into another one. What is one object there is
// one object here.
class ArchivedCopies {
public:
    // Data is copied up to that many bytes in all: an archive can claim the same bytes for any number of objects.
    explicit ArchivedCopies(std::size_t maximumDataSize)
        : _remainingDataSize(maximumDataSize) { }

    // Nothing for objects that are damaged, hold themselves, are nested beyond reason or too large, or are of a class
    // of their own.
    [[nodiscard]] std::optional<ArchiveValue> copyOf(const ArchivedObject& object);

private:
    std::optional<ArchiveValue> copyAt(const ArchivedObject& object, int depth);
    std::optional<ArchiveValue> copyOfContainer(const ArchivedObject& object, int depth);

    std::size_t _remainingDataSize;
    std::unordered_map<std::uint64_t, std::optional<ArchiveValue>>
        _containers; // arrays, dictionaries and data, by number
};

} // namespace tarragon
