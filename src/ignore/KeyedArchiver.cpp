#include "ignore/KeyedArchiver.h"

#include <bit>
#include <type_traits>

#include <plist/plist.h>

namespace tarragon {

namespace {

constexpr std::uint64_t ArchiveVersion = 100000;
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

PropertyListNode stringNode(const std::string& text) {
    return PropertyListNode(plist_new_string(propertyListText(text).c_str()));
}

PropertyListNode uidArrayNode(const std::vector<std::uint64_t>& uids) {
    PropertyListNode array(plist_new_array());
    for (const std::uint64_t uid : uids)
        plist_array_append_item(array.get(), plist_new_uid(uid));
    return array;
}

void setItem(const PropertyListNode& dictionary, const char* key, PropertyListNode value) {
    plist_dict_set_item(dictionary.get(), key, value.release());
}

} // namespace

KeyedArchiver::KeyedArchiver() {
    _objects.push_back(stringNode(NilName));
}

Data KeyedArchiver::archivedDataWithRootObject(const ArchiveValue& root) {
    KeyedArchiver archiver;
    const Uid uid = archiver.archive(root);
    return archiver.finish(uid);
}

Data KeyedArchiver::finish(Uid root) {
    PropertyListNode top(plist_new_dict());
    setItem(top, "root", PropertyListNode(plist_new_uid(root)));
    PropertyListNode objects(plist_new_array());
    for (PropertyListNode& object : _objects)
        plist_array_append_item(objects.get(), object.release());
    const PropertyListNode archive(plist_new_dict());
    setItem(archive, "$version", PropertyListNode(plist_new_uint(ArchiveVersion)));
    setItem(archive, "$archiver", stringNode("NSKeyedArchiver"));
    setItem(archive, "$top", std::move(top));
    setItem(archive, "$objects", std::move(objects));
    return binaryPropertyList(archive);
}

void KeyedArchiver::encodeObject(const ArchiveValue& value, std::string_view key) {
    // Archiving the value may descend into further objects, so the place is remembered first.
    const plist_t fields = _currentFields;
    const Uid uid = archive(value);
    plist_dict_set_item(fields, std::string(key).c_str(), plist_new_uid(uid));
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
    PropertyListNode value;
    if constexpr (std::is_same_v<Number, bool>)
        value.reset(plist_new_bool(number ? 1 : 0));
    else if constexpr (std::is_same_v<Number, double>)
        value.reset(plist_new_real(number));
    else
        value.reset(plist_new_uint(static_cast<std::uint64_t>(number)));
    return _uidsByNumber.emplace(identity, appendObject(std::move(value))).first->second;
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
                    _objects[uid].reset(plist_new_data(reinterpret_cast<const char*>(held->data()), held->size()));
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
        uid = appendObject(nullptr);
        PropertyListNode fields(plist_new_dict());
        setItem(fields, "NS.string", stringNode(text));
        setFields(uid, std::move(fields), {"NSString", "NSObject"});
    } else {
        uid = appendObject(stringNode(text));
    }
    _uidsByString.emplace(text, uid);
    return uid;
}

KeyedArchiver::Uid KeyedArchiver::archiveClass(const std::vector<std::string>& classes) {
    const auto known = _uidsByClasses.find(classes);
    if (known != _uidsByClasses.end())
        return known->second;
    PropertyListNode chain(plist_new_array());
    for (const std::string& name : classes)
        plist_array_append_item(chain.get(), stringNode(name).release());
    PropertyListNode record(plist_new_dict());
    setItem(record, "$classname", stringNode(classes.front()));
    setItem(record, "$classes", std::move(chain));
    return _uidsByClasses.emplace(classes, appendObject(std::move(record))).first->second;
}

KeyedArchiver::Uid KeyedArchiver::archiveArray(const std::shared_ptr<const ArchiveArray>& array) {
    const auto [uid, isNew] = uidForObject(array);
    if (!isNew)
        return uid;
    std::vector<Uid> elements;
    elements.reserve(array->elements.size());
    for (const ArchiveValue& element : array->elements)
        elements.push_back(archive(element));
    PropertyListNode fields(plist_new_dict());
    setItem(fields, "NS.objects", uidArrayNode(elements));
    setFields(uid, std::move(fields), classesOfArray(array->mutability));
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
    PropertyListNode fields(plist_new_dict());
    setItem(fields, "NS.keys", uidArrayNode(keys));
    setItem(fields, "NS.objects", uidArrayNode(objects));
    setFields(uid, std::move(fields), classesOfDictionary(dictionary->mutability));
    return uid;
}

KeyedArchiver::Uid KeyedArchiver::archiveCoding(const std::shared_ptr<const KeyedCoding>& object) {
    const auto [uid, isNew] = uidForObject(object);
    if (!isNew)
        return uid;
    PropertyListNode fields(plist_new_dict());
    const plist_t outerFields = std::exchange(_currentFields, fields.get());
    object->encodeWithCoder(*this);
    _currentFields = outerFields;
    setFields(uid, std::move(fields), object->archivedClasses());
    return uid;
}

std::pair<KeyedArchiver::Uid, bool> KeyedArchiver::uidForObject(std::shared_ptr<const void> object) {
    const auto [known, isNew] = _uidsByObject.try_emplace(std::move(object), _objects.size());
    if (isNew)
        _objects.emplace_back();
    return {known->second, isNew};
}

KeyedArchiver::Uid KeyedArchiver::appendObject(PropertyListNode value) {
    _objects.push_back(std::move(value));
    return _objects.size() - 1;
}

void KeyedArchiver::setFields(Uid uid, PropertyListNode fields, const std::vector<std::string>& classes) {
    setItem(fields, "$class", PropertyListNode(plist_new_uid(archiveClass(classes))));
    _objects[uid] = std::move(fields);
}

Data archiveOfEmptyMutableDictionary() {
    return KeyedArchiver::archivedDataWithRootObject(
        std::make_shared<const ArchiveDictionary>(ArchiveDictionary{{}, Mutability::Mutable}));
}

} // namespace tarragon
