#pragma once

#include "propertylist/BinaryPropertyListReader.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace tarragon {

class KeyedUnarchiver;

// One object of a keyed archive; its contents are read when they are asked for. A question that does not suit the
// object, or that meets a damaged place, is answered with nothing. Used only while its unarchiver lives.
class ArchivedObject {
public:
    bool isNil() const { return _uid == 0; }
    // The object's number in its archive: what is referred to in several places is one object.
    std::uint64_t uid() const { return _uid; }
    // The object is of that class or of one derived from it, by its class record.
    bool isKindOfClass(std::string_view className) const;

    // Numbers other than zero are true.
    std::optional<bool> boolValue() const;
    std::optional<std::int64_t> integerValue() const;
    std::optional<double> realValue() const;
    std::optional<std::string> string() const;
    // Lies within the archived bytes.
    std::optional<std::span<const std::uint8_t>> data() const;
    std::optional<std::vector<ArchivedObject>> array() const;
    // In stored order, keys that are no strings left out.
    std::optional<std::vector<std::pair<std::string, ArchivedObject>>> dictionary() const;

    // What the object encoded under the key; nil when it encoded nothing there.
    ArchivedObject decodeObjectForKey(std::string_view key) const;

private:
    friend class KeyedUnarchiver;
    using Object = BinaryPropertyListReader::Object;

    ArchivedObject(const KeyedUnarchiver& unarchiver, std::uint64_t uid, const Object& object)
        : _unarchiver(&unarchiver)
        , _uid(uid)
        , _object(object) { }

    std::optional<std::vector<ArchivedObject>> objects(std::string_view key) const;

    const KeyedUnarchiver* _unarchiver;
    std::uint64_t _uid;
    Object _object;
};

// Reads keyed archives, which may be untrusted.
class KeyedUnarchiver {
public:
    // The bytes stay the caller's and outlive the unarchiver.
    explicit KeyedUnarchiver(std::span<const std::uint8_t> archive);
    KeyedUnarchiver(const KeyedUnarchiver&) = delete;
    KeyedUnarchiver& operator=(const KeyedUnarchiver&) = delete;

    // Nothing when the bytes are no keyed archive.
    std::optional<ArchivedObject> root() const;
    // True once a question has met a damaged place: nothing learnt from the archive is to be relied on.
    bool isDamaged() const { return !_list || _list->isDamaged(); }

private:
    friend class ArchivedObject;
    using Object = BinaryPropertyListReader::Object;

    // The object that a UID stands for.
    std::optional<ArchivedObject> dereference(const Object& uid) const;

    std::optional<BinaryPropertyListReader> _list;
    std::optional<Object> _objects;
    std::optional<Object> _root;
};

} // namespace tarragon
