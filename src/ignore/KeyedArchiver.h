#pragma once

#include "ignore/KeyedCoding.h"
#include "propertylist/PropertyListNode.h"

#include <cstdint>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <typeindex>
#include <unordered_map>
#include <utility>
#include <vector>

namespace tarragon {

// Writes keyed archives: binary property lists that hold a graph of objects under numbers, with the class of each.
class KeyedArchiver {
public:
    static Data archivedDataWithRootObject(const ArchiveValue& root);

    // For use in KeyedCoding::encodeWithCoder: stores a value under a key of the object being archived.
    void encodeObject(const ArchiveValue& value, std::string_view key);

private:
    using Uid = std::uint64_t;
    // The type and the bits of a number: NaN, and the zeros of both signs, are told apart like any other.
    using NumberIdentity = std::pair<std::type_index, std::uint64_t>;

    KeyedArchiver();
    Data finish(Uid root);

    Uid archive(const ArchiveValue& value);
    template <typename Number>
    Uid archiveNumber(Number number);
    Uid archiveString(const std::string& text);
    Uid archiveClass(const std::vector<std::string>& classes);
    Uid archiveArray(const std::shared_ptr<const ArchiveArray>& array);
    Uid archiveDictionary(const std::shared_ptr<const ArchiveDictionary>& dictionary);
    Uid archiveCoding(const std::shared_ptr<const KeyedCoding>& object);
    // The number of an object that is archived already, or has just been given the next number; the second is true
    // for a new one.
    std::pair<Uid, bool> uidForObject(std::shared_ptr<const void> object);
    // Takes the next number for a value that is complete.
    Uid appendObject(PropertyListNode value);
    // Completes an object with its fields, a dictionary, and its class.
    void setFields(Uid uid, PropertyListNode fields, const std::vector<std::string>& classes);

    std::vector<PropertyListNode> _objects; // by number; nullptr until the object's contents are known
    // Holds on to the objects: the address of one that is gone could be given to another.
    std::unordered_map<std::shared_ptr<const void>, Uid> _uidsByObject;
    std::unordered_map<std::string, Uid> _uidsByString;
    std::map<NumberIdentity, Uid> _uidsByNumber;
    std::map<std::vector<std::string>, Uid> _uidsByClasses;
    void* _currentFields = nullptr; // of the object that encodes itself
};

// The archive of an empty mutable dictionary: a stored list with nothing in it.
Data archiveOfEmptyMutableDictionary();

} // namespace tarragon
