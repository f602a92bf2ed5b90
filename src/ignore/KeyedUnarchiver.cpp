#include "ignore/KeyedUnarchiver.h"

#include <utility>

namespace tarragon {

namespace {

constexpr std::uint64_t ArchiveVersion = 100000;

using Kind = BinaryPropertyListReader::Kind;

} // namespace

KeyedUnarchiver::KeyedUnarchiver(std::span<const std::uint8_t> archive)
    : _list(BinaryPropertyListReader::open(archive)) {
    const std::optional<Object> top = _list ? _list->top() : std::nullopt;
    if (!top)
        return;
    const std::optional<Object> archiver = _list->find(*top, "$archiver");
    const std::optional<Object> version = _list->find(*top, "$version");
    const std::optional<Object> roots = _list->find(*top, "$top");
    if (!archiver || !_list->isString(*archiver, "NSKeyedArchiver") || !version || !roots)
        return;
    if (version->kind != Kind::Integer || version->integer != ArchiveVersion)
        return;
    _objects = _list->find(*top, "$objects");
    _root = _list->find(*roots, "root");
}

std::optional<ArchivedObject> KeyedUnarchiver::root() const {
    if (!_objects || !_root)
        return std::nullopt;
    return dereference(*_root);
}

std::optional<ArchivedObject> KeyedUnarchiver::dereference(const Object& uid) const {
    if (uid.kind != Kind::Uid)
        return std::nullopt;
    const std::optional<Object> object = _list->element(*_objects, uid.integer);
    if (!object)
        return std::nullopt;
    return ArchivedObject(*this, uid.integer, *object);
}

bool ArchivedObject::isKindOfClass(std::string_view className) const {
    const BinaryPropertyListReader& list = *_unarchiver->_list;
    const std::optional<Object> uid = list.find(_object, "$class");
    const std::optional<ArchivedObject> record = uid ? _unarchiver->dereference(*uid) : std::nullopt;
    if (!record)
        return false;
    const std::optional<Object> name = list.find(record->_object, "$classname");
    if (name && list.isString(*name, className))
        return true;
    const std::optional<Object> chain = list.find(record->_object, "$classes");
    if (!chain || chain->kind != Kind::Array)
        return false;
    for (std::size_t index = 0; index < chain->count; ++index) {
        const std::optional<Object> ancestor = list.element(*chain, index);
        if (!ancestor)
            return false;
        if (list.isString(*ancestor, className))
            return true;
    }
    return false;
}

std::optional<bool> ArchivedObject::boolValue() const {
    switch (_object.kind) {
    case Kind::Boolean:
    case Kind::Integer:
        return _object.integer != 0;
    case Kind::Real:
        return _object.real != 0;
    default:
        return std::nullopt;
    }
}

std::optional<std::int64_t> ArchivedObject::integerValue() const {
    return _object.kind == Kind::Integer ? std::optional(static_cast<std::int64_t>(_object.integer)) : std::nullopt;
}

std::optional<double> ArchivedObject::realValue() const {
    return _object.kind == Kind::Real ? std::optional(_object.real) : std::nullopt;
}

std::optional<std::string> ArchivedObject::string() const {
    if (isNil())
        return std::nullopt;
    const BinaryPropertyListReader& list = *_unarchiver->_list;
    if (_object.kind != Kind::Dictionary)
        return list.string(_object);
    // Mutable strings, and others that cannot stand for themselves, are wrapped in an object.
    if (!isKindOfClass("NSString"))
        return std::nullopt;
    const std::optional<Object> text = list.find(_object, "NS.string");
    return text ? list.string(*text) : std::nullopt;
}

std::optional<std::span<const std::uint8_t>> ArchivedObject::data() const {
    const BinaryPropertyListReader& list = *_unarchiver->_list;
    if (_object.kind != Kind::Dictionary)
        return list.data(_object);
    if (!isKindOfClass("NSData"))
        return std::nullopt;
    const std::optional<Object> bytes = list.find(_object, "NS.data");
    return bytes ? list.data(*bytes) : std::nullopt;
}

std::optional<std::vector<ArchivedObject>> ArchivedObject::objects(std::string_view key) const {
    const BinaryPropertyListReader& list = *_unarchiver->_list;
    const std::optional<Object> uids = list.find(_object, key);
    if (!uids || uids->kind != Kind::Array)
        return std::nullopt;
    std::vector<ArchivedObject> objects;
    for (std::size_t index = 0; index < uids->count; ++index) {
        const std::optional<Object> uid = list.element(*uids, index);
        const std::optional<ArchivedObject> object = uid ? _unarchiver->dereference(*uid) : std::nullopt;
        if (!object)
            return std::nullopt;
        objects.push_back(*object);
    }
    return objects;
}

std::optional<std::vector<ArchivedObject>> ArchivedObject::array() const {
    return isKindOfClass("NSArray") ? objects("NS.objects") : std::nullopt;
}

std::optional<std::vector<std::pair<std::string, ArchivedObject>>> ArchivedObject::dictionary() const {
    if (!isKindOfClass("NSDictionary"))
        return std::nullopt;
    const std::optional<std::vector<ArchivedObject>> keys = objects("NS.keys");
    const std::optional<std::vector<ArchivedObject>> values = keys ? objects("NS.objects") : std::nullopt;
    if (!values || keys->size() != values->size())
        return std::nullopt;
    std::vector<std::pair<std::string, ArchivedObject>> entries;
    entries.reserve(keys->size());
    for (std::size_t index = 0; index < keys->size(); ++index) {
        if (std::optional<std::string> key = (*keys)[index].string())
            entries.emplace_back(std::move(*key), (*values)[index]);
    }
    return entries;
}

ArchivedObject ArchivedObject::decodeObjectForKey(std::string_view key) const {
    const std::optional<Object> uid = _unarchiver->_list->find(_object, key);
    const std::optional<ArchivedObject> object = uid ? _unarchiver->dereference(*uid) : std::nullopt;
    return object ? *object : ArchivedObject(*_unarchiver, 0, {});
}

} // namespace tarragon
