#include "fuzz/HostileList.h"

#include "fuzz/RawPropertyList.h"
#include "ignore/IgnoreDictionary.h"
#include "ignore/KeyedArchiver.h"

#include <functional>
#include <memory>

namespace tarragon {

namespace {

using Number = std::uint32_t;

// What makes up an archived dictionary, each piece to be replaced by a wrong one.
struct Parts {
    RawPropertyList list;
    std::string dictionaryClass = "NSDictionary";
    std::string keysName = "NS.keys";
    std::string objectsName = "NS.objects";
    std::string className = "$class";
    Number key = 2; // object numbers
    Number object = 3;
    Number classRecord = 4;
    Number root = 1;
    std::vector<Number> keys{};
    std::vector<Number> objects{};
    std::string entryString = "org.example.Editor";

    Data write() {
        if (keys.empty())
            keys = {list.uid(key)};
        if (objects.empty())
            objects = {list.uid(object)};
        TarragonBlacklist ignoringAll;
        ignoringAll.setIgnoreAllAppWindows(true);
        const Data entryArchive = ignoringAll.archivedData();
        Data entry = RawPropertyList::marker(0x40, entryArchive.size());
        entry.insert(entry.end(), entryArchive.begin(), entryArchive.end());
        const Number dictionary = list.dictionary({
            {list.string(keysName), list.array(keys)},
            {list.string(objectsName), list.array(objects)},
            {list.string(className), list.uid(classRecord)},
        });
        const Number record = list.dictionary({
            {list.string("$classname"), list.string(dictionaryClass)},
            {list.string("$classes"), list.array({list.string(dictionaryClass), list.string("NSObject")})},
        });
        const Number archive = list.archive(
            {list.string("$null"), dictionary, list.string(entryString), list.add(std::move(entry)), record}, root);
        return list.write(archive);
    }
};

HostileList changed(std::string name, const std::function<void(Parts&)>& change) {
    Parts parts;
    change(parts);
    return {std::move(name), parts.write()};
}

// A list whose one entry, for "org.example.Editor", is given.
Data listWithEntry(const Data& entry) {
    ArchiveDictionary dictionary;
    dictionary.entries = {{"org.example.Editor", std::make_shared<const Data>(entry)}};
    return KeyedArchiver::archivedDataWithRootObject(std::make_shared<const ArchiveDictionary>(dictionary));
}

// An entry whose titles are an array object of the given references.
Data listWithTitles(const std::function<std::vector<Number>(RawPropertyList&)>& titles, const std::string& title) {
    RawPropertyList list;
    const std::vector<Number> references = titles(list);
    const Number entry = list.dictionary({
        {list.string("windowsWithTitlesToIgnore"), list.uid(2)},
        {list.string("$class"), list.uid(4)},
    });
    const Number array = list.dictionary({
        {list.string("NS.objects"), list.array(references)},
        {list.string("$class"), list.uid(5)},
    });
    const Number entryClass = list.dictionary({{list.string("$classname"), list.string("TarragonBlacklist")}});
    const Number arrayClass = list.dictionary({{list.string("$classname"), list.string("NSArray")}});
    const Number archive =
        list.archive({list.string("$null"), entry, array, list.string(title), entryClass, arrayClass}, 1);
    return listWithEntry(list.write(archive));
}

// An entry that ignores every window, but for its name, which is nowhere.
Data listWithDamagedEntry() {
    RawPropertyList list;
    const Number entry = list.dictionary({
        {list.string("appName"), list.uid(99)},
        {list.string("ignoreAllAppWindows"), list.uid(2)},
        {list.string("$class"), list.uid(3)},
    });
    const Number entryClass = list.dictionary({{list.string("$classname"), list.string("TarragonBlacklist")}});
    const Number archive = list.archive({list.string("$null"), entry, list.add({0x09}), entryClass}, 1);
    return listWithEntry(list.write(archive));
}

// Many applications whose entries are all the same large one.
Data listWithSharedEntry() {
    constexpr Number Count = 1000;
    RawPropertyList list;
    Data entry = RawPropertyList::marker(0x40, 1'000'000);
    entry.resize(entry.size() + 1'000'000);
    std::vector<Number> objects{list.string("$null"), 0, list.add(std::move(entry)),
        list.dictionary({{list.string("$classname"), list.string("NSDictionary")}})};
    std::vector<Number> keys;
    for (Number number = 0; number < Count; ++number) {
        keys.push_back(list.uid(static_cast<Number>(objects.size())));
        objects.push_back(list.string("org.example." + std::to_string(number)));
    }
    objects[1] = list.dictionary({
        {list.string("NS.keys"), list.array(keys)},
        {list.string("NS.objects"), list.array(std::vector<Number>(Count, list.uid(2)))},
        {list.string("$class"), list.uid(3)},
    });
    return list.write(list.archive(objects, 1));
}

// Beside no entry, an array whose many elements are all the same large data under other numbers.
Data listWithSharedDataInAnArray() {
    constexpr Number Count = 1000;
    RawPropertyList list;
    Data large = RawPropertyList::marker(0x40, 1'000'000);
    large.resize(large.size() + 1'000'000);
    const Number data = list.add(std::move(large));
    std::vector<Number> objects{list.string("$null"), 0, list.string("key"), 0,
        list.dictionary({{list.string("$classname"), list.string("NSDictionary")}}),
        list.dictionary({{list.string("$classname"), list.string("NSArray")}})};
    std::vector<Number> elements;
    for (Number number = 0; number < Count; ++number) {
        elements.push_back(list.uid(static_cast<Number>(objects.size())));
        objects.push_back(data);
    }
    objects[1] = list.dictionary({
        {list.string("NS.keys"), list.array({list.uid(2)})},
        {list.string("NS.objects"), list.array({list.uid(3)})},
        {list.string("$class"), list.uid(4)},
    });
    objects[3] = list.dictionary({
        {list.string("NS.objects"), list.array(elements)},
        {list.string("$class"), list.uid(5)},
    });
    return list.write(list.archive(objects, 1));
}

// Beside no entry, arrays of arrays: each holds the next one twice, the last one the first.
Data listWithArraysInEachOther() {
    constexpr Number Count = 1000;
    RawPropertyList list;
    std::vector<Number> objects{list.string("$null"), 0, list.string("key"),
        list.dictionary({{list.string("$classname"), list.string("NSDictionary")}}),
        list.dictionary({{list.string("$classname"), list.string("NSArray")}})};
    const auto first = static_cast<Number>(objects.size());
    for (Number number = 0; number < Count; ++number) {
        const Number next = list.uid(first + (number + 1) % Count);
        objects.push_back(list.dictionary({
            {list.string("NS.objects"), list.array({next, next})},
            {list.string("$class"), list.uid(4)},
        }));
    }
    objects[1] = list.dictionary({
        {list.string("NS.keys"), list.array({list.uid(2)})},
        {list.string("NS.objects"), list.array({list.uid(first)})},
        {list.string("$class"), list.uid(3)},
    });
    return list.write(list.archive(objects, 1));
}

Data deeplyNested() {
    RawPropertyList list;
    Number inner = list.array({});
    for (int depth = 0; depth < 100000; ++depth)
        inner = list.array({inner});
    return list.write(list.archive({list.string("$null"), inner}, 1));
}

Data tenMillionElements() {
    constexpr std::uint64_t Count = 10'000'000;
    // References of one byte, all to the first value.
    Data bytes{'b', 'p', 'l', 'i', 's', 't', '0', '0'};
    const Data marker = RawPropertyList::marker(0xA0, Count);
    bytes.insert(bytes.end(), marker.begin(), marker.end());
    bytes.insert(bytes.end(), Count, 0);
    const std::size_t offsetTable = bytes.size();
    bytes.push_back(8);
    RawPropertyList::appendBigEndian(bytes, 0, 6);
    bytes.push_back(1);
    bytes.push_back(1);
    RawPropertyList::appendBigEndian(bytes, 1, 8);
    RawPropertyList::appendBigEndian(bytes, 0, 8);
    RawPropertyList::appendBigEndian(bytes, offsetTable, 8);
    return bytes;
}

Data withClaimedObjects(std::uint64_t count) {
    RawPropertyList list;
    list.claimedObjects = count;
    const Number archive = list.archive({list.string("$null")}, 0);
    return list.write(archive);
}

Data withCount(std::uint8_t kind, std::uint64_t count) {
    RawPropertyList list;
    const Number value = list.add(RawPropertyList::marker(kind, count));
    return list.write(list.archive({list.string("$null"), value}, 1));
}

Data withEveryObjectAsRoot(std::uint32_t offset) {
    Data bytes = soundList();
    // The offset table begins right before the trailer, at the place that the trailer tells.
    const std::size_t trailer = bytes.size() - 32;
    std::size_t table = 0;
    for (std::size_t index = trailer + 24; index < bytes.size(); ++index)
        table = table << 8U | bytes[index];
    const unsigned size = bytes[trailer + 6];
    for (std::size_t place = table; place < trailer; place += size) {
        for (unsigned index = 0; index < size; ++index)
            bytes[place + index] = static_cast<std::uint8_t>(offset >> (8 * (size - 1 - index)));
    }
    return bytes;
}

} // namespace

Data soundList() {
    TarragonBlacklist entry;
    entry.setAppBundleID("org.example.Editor");
    entry.setAppName("Editor");
    entry.setWindowsWithTitlesToIgnore(std::vector<std::string>{"Untitled 3"});
    IgnoreDictionary dictionary;
    dictionary.setEntry("org.example.Editor", entry);
    return dictionary.archivedData();
}

std::vector<HostileList> soundLists() {
    return {
        {"written", soundList()},
        changed("built", [](Parts&) {}),
        {"built-with-titles",
            listWithTitles([](RawPropertyList& list) { return std::vector<Number>{list.uid(3)}; }, "Untitled 3")},
    };
}

std::vector<HostileList> hostileLists() {
    const Data sound = soundList();
    const auto withTrailerByte = [&sound](std::size_t fromEnd, std::uint8_t value) {
        Data bytes = sound;
        bytes[bytes.size() - fromEnd] = value;
        return bytes;
    };
    const auto manyUids = [](RawPropertyList& list) { return std::vector<Number>(1'000'000, list.uid(3)); };

    std::vector<HostileList> lists{
        {"empty", {}},
        {"text", {'h', 'e', 'l', 'l', 'o'}},
        {"header-alone", {'b', 'p', 'l', 'i', 's', 't', '0', '0'}},
        {"truncated", Data(sound.begin(), sound.end() - 1)},
        {"truncated-at-half", Data(sound.begin(), sound.begin() + static_cast<std::ptrdiff_t>(sound.size() / 2))},
        {"beginning-missing", Data(sound.begin() + 1, sound.end())},
        {"other-version",
            [&sound] {
                Data bytes = sound;
                bytes[7] = '5';
                return bytes;
            }()},
        {"offset-size-zero", withTrailerByte(26, 0)},
        {"offset-size-nine", withTrailerByte(26, 9)},
        {"reference-size-zero", withTrailerByte(25, 0)},
        {"reference-size-large", withTrailerByte(25, 255)},
        {"top-out-of-range", withTrailerByte(9, 255)},
        {"offset-table-out-of-range", withTrailerByte(3, 255)},
        {"offset-table-at-the-end-of-memory", withTrailerByte(8, 255)},
        {"no-objects", withClaimedObjects(std::uint64_t{1} << 63U)},
        {"ten-million-objects-claimed", withClaimedObjects(10'000'000)},
        {"objects-that-overflow", withClaimedObjects(0x4000000000000001)},
        {"offsets-behind-the-end", withEveryObjectAsRoot(0xFFFFFFFF)},
        {"offsets-before-the-beginning", withEveryObjectAsRoot(0)},
        {"offsets-all-the-same", withEveryObjectAsRoot(8)},
        {"ten-million-elements", tenMillionElements()},
        {"elements-claimed", withCount(0xA0, 10'000'000)},
        {"elements-that-overflow", withCount(0xA0, 0x4000000000000000)},
        {"entries-that-overflow", withCount(0xD0, 0x2000000000000000)},
        {"data-that-overflows", withCount(0x40, 0xFFFFFFFFFFFFFFFF)},
        {"text-that-overflows", withCount(0x60, 0x8000000000000000)},
        {"deeply-nested", deeplyNested()},
        changed("class-not-a-dictionary", [](Parts& parts) { parts.dictionaryClass = "NSArray"; }),
        changed("class-missing", [](Parts& parts) { parts.className = "$klass"; }),
        changed("class-out-of-range", [](Parts& parts) { parts.classRecord = 99; }),
        changed("class-of-itself", [](Parts& parts) { parts.classRecord = 1; }),
        changed("keys-missing", [](Parts& parts) { parts.keysName = "NS.key"; }),
        changed("objects-missing", [](Parts& parts) { parts.objectsName = "NS.object"; }),
        changed("keys-and-objects-of-different-number",
            [](Parts& parts) { parts.keys.assign(2, parts.list.uid(parts.key)); }),
        changed("key-out-of-range", [](Parts& parts) { parts.key = 99; }),
        changed("object-out-of-range", [](Parts& parts) { parts.object = 0xFFFFFFFF; }),
        changed("reference-out-of-range", [](Parts& parts) { parts.keys = {99}; }),
        changed("key-not-a-reference", [](Parts& parts) { parts.keys = {parts.list.string("org.example.Editor")}; }),
        changed("root-out-of-range", [](Parts& parts) { parts.root = 5; }),
        changed("root-nil", [](Parts& parts) { parts.root = 0; }),
        changed("root-a-string", [](Parts& parts) { parts.root = 2; }),
        changed("root-a-class", [](Parts& parts) { parts.root = 4; }),
        changed("dictionary-in-itself", [](Parts& parts) { parts.object = 1; }),
        changed("key-is-the-dictionary", [](Parts& parts) { parts.key = 1; }),
        changed("many-references-to-one-entry",
            [](Parts& parts) {
                parts.keys.assign(1'000'000, parts.list.uid(parts.key));
                parts.objects.assign(1'000'000, parts.list.uid(parts.object));
            }),
        changed("many-references-to-a-long-key",
            [](Parts& parts) {
                parts.entryString = std::string(1'000'000, 'x');
                parts.keys.assign(10'000, parts.list.uid(parts.key));
                parts.objects.assign(10'000, parts.list.uid(parts.object));
            }),
        {"one-large-entry-under-many-keys", listWithSharedEntry()},
        {"one-large-data-many-times-in-an-array", listWithSharedDataInAnArray()},
        {"arrays-in-each-other", listWithArraysInEachOther()},
        {"entry-empty", listWithEntry({})},
        {"entry-with-a-name-out-of-range", listWithDamagedEntry()},
        {"entry-truncated",
            [] {
                Data entry = TarragonBlacklist().archivedData();
                entry.pop_back();
                return listWithEntry(entry);
            }()},
        {"entry-a-list", listWithEntry(sound)},
        {"title-is-its-own-array",
            listWithTitles([](RawPropertyList& list) { return std::vector<Number>{list.uid(2)}; }, "Untitled 3")},
        {"title-is-the-entry",
            listWithTitles([](RawPropertyList& list) { return std::vector<Number>{list.uid(1)}; }, "Untitled 3")},
        {"title-nil",
            listWithTitles([](RawPropertyList& list) { return std::vector<Number>{list.uid(0)}; }, "Untitled 3")},
        {"title-out-of-range",
            listWithTitles(
                [](RawPropertyList& list) {
                    return std::vector<Number>{list.uid(3), list.uid(6)};
                },
                "Untitled 3")},
        {"many-titles", listWithTitles(manyUids, "Untitled 3")},
        {"many-long-titles", listWithTitles(manyUids, std::string(1'000'000, 'x'))},
    };
    return lists;
}

} // namespace tarragon
