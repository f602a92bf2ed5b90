#pragma once

#include "platform/Defaults.h"

#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <utility>
#include <vector>

namespace tarragon {

// Writes a property list in its binary form. Values are added first and named by the index that adding them gives;
// containers hold indices, so that a value may stand in several places and is written once.
class BinaryPropertyListWriter {
public:
    using Index = std::size_t;

    Index addBoolean(bool value);
    Index addInteger(std::int64_t value);
    Index addReal(double value);
    // UTF-8; what is not well-formed becomes U+FFFD. Equal strings are one value.
    Index addString(const std::string& text);
    Index addData(const Data& data);
    // The number of an object in a keyed archive.
    Index addUid(std::uint64_t uid);
    Index addArray(std::vector<Index> elements);
    Index addDictionary(const std::vector<std::pair<Index, Index>>& entries);

    // The property list whose top value is given.
    Data write(Index top) const;

private:
    struct Value {
        Data bytes; // marker, count and contents, without references to other values
        std::vector<Index> references;
    };

    Index add(Data bytes, std::vector<Index> references = {});

    std::vector<Value> _values;
    std::map<std::string, Index> _strings;
};

} // namespace tarragon
