#pragma once

#include "platform/Defaults.h"

#include <cstdint>
#include <memory>
#include <string>
#include <utility>
#include <variant>
#include <vector>

namespace tarragon {

class KeyedArchiver;
class KeyedCoding;
struct ArchiveArray;
struct ArchiveDictionary;

// A value that can be put into a keyed archive. std::monostate is nil. What is held by pointer is archived once,
// however often the same object appears; no pointer may be null.
using ArchiveValue = std::variant<std::monostate, bool, std::int64_t, double, std::string, std::shared_ptr<const Data>,
    std::shared_ptr<const ArchiveArray>, std::shared_ptr<const ArchiveDictionary>, std::shared_ptr<const KeyedCoding>>;

// Whether a container is archived as one that its reader may change.
enum class Mutability { Immutable, Mutable };

struct ArchiveArray {
    std::vector<ArchiveValue> elements;
    Mutability mutability = Mutability::Immutable;
};

struct ArchiveDictionary {
    std::vector<std::pair<std::string, ArchiveValue>> entries; // archived in this order; each key stands there once
    Mutability mutability = Mutability::Immutable;
};

// An object of a class of its own that can be archived.
class KeyedCoding {
public:
    virtual ~KeyedCoding() = default;

    // The name of the object's class and of its base classes, down to "NSObject".
    virtual std::vector<std::string> archivedClasses() const = 0;
    // Gives the archiver what the object holds, through encodeObject.
    virtual void encodeWithCoder(KeyedArchiver& coder) const = 0;
};

} // namespace tarragon
