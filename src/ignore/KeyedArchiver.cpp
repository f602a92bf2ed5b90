#include "ignore/KeyedArchiver.h"

#include <bit>
#include <type_traits>

namespace tarragon {

namespace {

constexpr std::int64_t ArchiveVersion = 100000;
constexpr const char* NilName = "$null"; // stands in the place of object number 0, which is nil

const std::vector<std::string>& classesOfArray(Mutability mutability) {
    static const std::vector<std::string> Immutable{"NSArray", "NSObject"};
    static const std::vector<std::string> Mutable{"NSMutableArray", "NSArray", "NSObject"};
    return mutability == Mutability::Mutable ? Mutable : Immutable;
}

const std::vector<std::string>& classesOfDictionary(Mutability mutability) {
    static const std::vector<std::string> Immutable{"NSDictionary", "NSObject"};
    static const std::vector<std::string> Mutable{"NSMutableDictionary", "NSDictionary", "NSObject"};
    return mutability == Mutability::Mutable ? Mutable : Immutable;
}

} // namespace

KeyedArchiver::KeyedArchiver()
    : _objects{_writer.addString(NilName)} { }

Data KeyedArchiver::archivedDataWithRootObject(const ArchiveValue& root) {
    KeyedArchiver archiver;
    const Uid uid = archiver.archive(root);
    return archiver.finish(uid);
}

Data KeyedArchiver::finish(Uid root) {
    const Index top = _writer.addDictionary({{_writer.addString("root"), _writer.addUid(root)}});
    return _writer.write(_writer.addDictionary({
        {_writer.addString("$version"), _writer.addInteger(ArchiveVersion)},
        {_writer.addString("$archiver"), _writer.addString("NSKeyedArchiver")},
        {_writer.addString("$top"), top},
        {_writer.addString("$objects"), _writer.addArray(_objects)},
    }));
}

void KeyedArchiver::encodeObject(const ArchiveValue& value, std::string_view key) {
    // Archiving the value may descend into further objects, so the place is remembered first.
    Fields& fields = *_currentFields;
    const Uid uid = archive(value);
    fields.emplace_back(_writer.addString(std::string(key)), _writer.addUid(uid));
}

template <typename Number>
KeyedArchiver::Uid KeyedArchiver::archiveNumber(Number number) {
    NumberIdentity identity{typeid(Number), 0};
    if constexpr (std::is_same_v<Number, double>)
        identity.second = std::bit_cast<std::uint64_t>(number);
    else
        identity.second = static_cast<std::uint64_t>(number);
    const auto known = _uidsByNumber.find(identity);
    if (known != _uidsByNumber.end())
        return known->second;
    Index value = 0;
    if constexpr (std::is_same_v<Number, bool>)
        value = _writer.addBoolean(number);
    else if constexpr (std::is_same_v<Number, double>)
        value = _writer.addReal(number);
    else
        value = _writer.addInteger(number);
    return _uidsByNumber.emplace(identity, appendObject(value)).first->second;
}

KeyedArchiver::Uid KeyedArchiver::archive(const ArchiveValue& value) {
    return std::visit(
        [this](const auto& held) -> Uid {
            using Held = std::decay_t<decltype(held)>;
            if constexpr (std::is_same_v<Held, std::monostate>) {
                return 0;
            } else if constexpr (std::is_arithmetic_v<Held>) {
                return archiveNumber(held);
            } else if constexpr (std::is_same_v<Held, std::string>) {
                return archiveString(held);
            } else if constexpr (std::is_same_v<Held, std::shared_ptr<const Data>>) {
                const auto [uid, isNew] = uidForObject(held);
                if (isNew)
                    _objects[uid] = _writer.addData(*held);
                return uid;
            } else if constexpr (std::is_same_v<Held, std::shared_ptr<const ArchiveArray>>) {
                return archiveArray(held);
            } else if constexpr (std::is_same_v<Held, std::shared_ptr<const ArchiveDictionary>>) {
                return archiveDictionary(held);
            } else {
                return archiveCoding(held);
            }
        },
        value);
}

KeyedArchiver::Uid KeyedArchiver::archiveString(const std::string& text) {
    const auto known = _uidsByString.find(text);
    if (known != _uidsByString.end())
        return known->second;
    Uid uid = 0;
    if (text == NilName) {
        // As a plain string this text would be read as nil, so it is wrapped in an object.
        uid = appendObject(0);
        setFields(uid, {{_writer.addString("NS.string"), _writer.addString(text)}}, {"NSString", "NSObject"});
    } else {
        uid = appendObject(_writer.addString(text));
    }
    _uidsByString.emplace(text, uid);
    return uid;
}

KeyedArchiver::Uid KeyedArchiver::archiveClass(const std::vector<std::string>& classes) {
    const auto known = _uidsByClasses.find(classes);
    if (known != _uidsByClasses.end())
        return known->second;
    std::vector<Index> chain;
    chain.reserve(classes.size());
    for (const std::string& name : classes)
        chain.push_back(_writer.addString(name));
    const Uid uid = appendObject(_writer.addDictionary({
        {_writer.addString("$classname"), chain.front()},
        {_writer.addString("$classes"), _writer.addArray(chain)},
    }));
    _uidsByClasses.emplace(classes, uid);
    return uid;
}

KeyedArchiver::Uid KeyedArchiver::archiveArray(const std::shared_ptr<const ArchiveArray>& array) {
    const auto [uid, isNew] = uidForObject(array);
    if (!isNew)
        return uid;
    std::vector<Uid> elements;
    elements.reserve(array->elements.size());
    for (const ArchiveValue& element : array->elements)
        elements.push_back(archive(element));
    setFields(uid, {{_writer.addString("NS.objects"), uidArray(elements)}}, classesOfArray(array->mutability));
    return uid;
}

KeyedArchiver::Uid KeyedArchiver::archiveDictionary(const std::shared_ptr<const ArchiveDictionary>& dictionary) {
    const auto [uid, isNew] = uidForObject(dictionary);
    if (!isNew)
        return uid;
    std::vector<Uid> keys;
    std::vector<Uid> objects;
    keys.reserve(dictionary->entries.size());
    objects.reserve(dictionary->entries.size());
    for (const auto& [key, object] : dictionary->entries) {
        keys.push_back(archiveString(key));
        objects.push_back(archive(object));
    }
    setFields(uid,
        {
            {_writer.addString("NS.keys"), uidArray(keys)},
            {_writer.addString("NS.objects"), uidArray(objects)},
        },
        classesOfDictionary(dictionary->mutability));
    return uid;
}

KeyedArchiver::Uid KeyedArchiver::archiveCoding(const std::shared_ptr<const KeyedCoding>& object) {
    const auto [uid, isNew] = uidForObject(object);
    if (!isNew)
        return uid;
    Fields fields;
    Fields* const outerFields = std::exchange(_currentFields, &fields);
    object->encodeWithCoder(*this);
    _currentFields = outerFields;
    setFields(uid, std::move(fields), object->archivedClasses());
    return uid;
}

std::pair<KeyedArchiver::Uid, bool> KeyedArchiver::uidForObject(std::shared_ptr<const void> object) {
    const auto [known, isNew] = _uidsByObject.try_emplace(std::move(object), _objects.size());
    if (isNew)
        _objects.push_back(0); // nil until the object's contents are known
    return {known->second, isNew};
}

KeyedArchiver::Uid KeyedArchiver::appendObject(Index value) {
    _objects.push_back(value);
    return _objects.size() - 1;
}

void KeyedArchiver::setFields(Uid uid, Fields fields, const std::vector<std::string>& classes) {
    const Uid classUid = archiveClass(classes);
    fields.emplace_back(_writer.addString("$class"), _writer.addUid(classUid));
    _objects[uid] = _writer.addDictionary(fields);
}

KeyedArchiver::Index KeyedArchiver::uidArray(const std::vector<Uid>& uids) {
    std::vector<Index> elements;
    elements.reserve(uids.size());
    for (const Uid uid : uids)
        elements.push_back(_writer.addUid(uid));
    return _writer.addArray(std::move(elements));
}

Data archiveOfEmptyMutableDictionary() {
    return KeyedArchiver::archivedDataWithRootObject(
        std::make_shared<const ArchiveDictionary>(ArchiveDictionary{{}, Mutability::Mutable}));
}

} // namespace tarragon
