#include "ignore/KeyedArchiver.h"

#include <gmock/gmock.h>
#include <plist/plist.h>

#include <algorithm>
#include <limits>
#include <memory>
#include <set>
#include <string>

namespace tarragon {
namespace {

using testing::ElementsAre;

// The property list in an archive, as an independent reader sees it.
class PropertyList {
public:
    explicit PropertyList(const Data& archive) {
        plist_from_bin(
            reinterpret_cast<const char*>(archive.data()), static_cast<std::uint32_t>(archive.size()), &_node);
    }
    PropertyList(const PropertyList&) = delete;
    PropertyList& operator=(const PropertyList&) = delete;
    ~PropertyList() { plist_free(_node); }

    plist_t top() const { return _node; }
    plist_t objects() const { return plist_dict_get_item(_node, "$objects"); }
    std::uint32_t numberOfObjects() const { return plist_array_get_size(objects()); }
    plist_t object(std::uint64_t uid) const { return plist_array_get_item(objects(), static_cast<std::uint32_t>(uid)); }
    std::uint64_t rootUid() const { return uid(plist_dict_get_item(plist_dict_get_item(_node, "$top"), "root")); }
    plist_t root() const { return object(rootUid()); }

    static std::uint64_t uid(plist_t node) {
        std::uint64_t value = 0;
        EXPECT_EQ(plist_get_node_type(node), PLIST_UID);
        plist_get_uid_val(node, &value);
        return value;
    }
    static std::string string(plist_t node) {
        EXPECT_EQ(plist_get_node_type(node), PLIST_STRING);
        std::uint64_t length = 0;
        const char* text = plist_get_string_ptr(node, &length);
        return text ? std::string(text, length) : std::string();
    }
    static std::vector<std::string> strings(plist_t array) {
        std::vector<std::string> texts;
        for (std::uint32_t index = 0; index < plist_array_get_size(array); ++index)
            texts.push_back(string(plist_array_get_item(array, index)));
        return texts;
    }
    static std::vector<std::uint64_t> uids(plist_t array) {
        std::vector<std::uint64_t> numbers;
        for (std::uint32_t index = 0; index < plist_array_get_size(array); ++index)
            numbers.push_back(uid(plist_array_get_item(array, index)));
        return numbers;
    }
    std::vector<std::string> classesOf(plist_t object) const {
        const plist_t record = this->object(uid(plist_dict_get_item(object, "$class")));
        std::vector<std::string> classes = strings(plist_dict_get_item(record, "$classes"));
        EXPECT_EQ(string(plist_dict_get_item(record, "$classname")), classes.front());
        return classes;
    }

private:
    plist_t _node = nullptr;
};

std::shared_ptr<const ArchiveArray> array(std::vector<ArchiveValue> elements) {
    return std::make_shared<const ArchiveArray>(ArchiveArray{std::move(elements)});
}

Data archiveOf(std::vector<ArchiveValue> elements) {
    return KeyedArchiver::archivedDataWithRootObject(array(std::move(elements)));
}

// Two fields and a neighbour of the same class.
class Pair : public KeyedCoding {
public:
    explicit Pair(ArchiveValue first, ArchiveValue second)
        : _first(std::move(first))
        , _second(std::move(second)) { }
    std::vector<std::string> archivedClasses() const override { return {"Pair", "Base", "NSObject"}; }
    void encodeWithCoder(KeyedArchiver& coder) const override {
        coder.encodeObject(_first, "first");
        coder.encodeObject(_second, "second");
    }

private:
    ArchiveValue _first;
    ArchiveValue _second;
};

TEST(KeyedArchiver, WritesABinaryPropertyListWithArchiverVersionTopAndObjects) {
    const Data archive = archiveOfEmptyMutableDictionary();
    ASSERT_EQ(std::string(archive.begin(), archive.begin() + 8), "bplist00");
    const PropertyList list(archive);
    EXPECT_EQ(PropertyList::string(plist_dict_get_item(list.top(), "$archiver")), "NSKeyedArchiver");
    std::uint64_t version = 0;
    plist_get_uint_val(plist_dict_get_item(list.top(), "$version"), &version);
    EXPECT_EQ(version, 100000U);
    EXPECT_EQ(plist_dict_get_size(list.top()), 4U);
    EXPECT_EQ(list.rootUid(), 1U);
}

TEST(KeyedArchiver, PutsNullInThePlaceOfObjectZero) {
    const PropertyList list(archiveOfEmptyMutableDictionary());
    EXPECT_EQ(PropertyList::string(list.object(0)), "$null");
}

TEST(KeyedArchiver, ArchivesAnEmptyMutableDictionaryWithItsClassRecord) {
    const PropertyList list(archiveOfEmptyMutableDictionary());
    EXPECT_EQ(list.numberOfObjects(), 3U);
    EXPECT_EQ(plist_array_get_size(plist_dict_get_item(list.root(), "NS.keys")), 0U);
    EXPECT_EQ(plist_array_get_size(plist_dict_get_item(list.root(), "NS.objects")), 0U);
    EXPECT_THAT(list.classesOf(list.root()), ElementsAre("NSMutableDictionary", "NSDictionary", "NSObject"));
}

TEST(KeyedArchiver, TellsMutableContainersFromImmutableOnes) {
    const PropertyList dictionary(
        KeyedArchiver::archivedDataWithRootObject(std::make_shared<const ArchiveDictionary>()));
    EXPECT_THAT(dictionary.classesOf(dictionary.root()), ElementsAre("NSDictionary", "NSObject"));
    const PropertyList immutableArray(archiveOf({}));
    EXPECT_THAT(immutableArray.classesOf(immutableArray.root()), ElementsAre("NSArray", "NSObject"));
    const PropertyList mutableArray(KeyedArchiver::archivedDataWithRootObject(
        std::make_shared<const ArchiveArray>(ArchiveArray{{}, Mutability::Mutable})));
    EXPECT_THAT(mutableArray.classesOf(mutableArray.root()), ElementsAre("NSMutableArray", "NSArray", "NSObject"));
}

TEST(KeyedArchiver, KeepsKeysAndObjectsOfADictionaryInOrder) {
    const PropertyList list(KeyedArchiver::archivedDataWithRootObject(std::make_shared<const ArchiveDictionary>(
        ArchiveDictionary{{{"zebra", std::string("one")}, {"ant", std::string("two")}}})));
    const auto keys = PropertyList::uids(plist_dict_get_item(list.root(), "NS.keys"));
    const auto objects = PropertyList::uids(plist_dict_get_item(list.root(), "NS.objects"));
    ASSERT_EQ(keys.size(), 2U);
    ASSERT_EQ(objects.size(), 2U);
    EXPECT_EQ(PropertyList::string(list.object(keys[0])), "zebra");
    EXPECT_EQ(PropertyList::string(list.object(keys[1])), "ant");
    EXPECT_EQ(PropertyList::string(list.object(objects[0])), "one");
    EXPECT_EQ(PropertyList::string(list.object(objects[1])), "two");
}

TEST(KeyedArchiver, WritesNilAsObjectZero) {
    const PropertyList list(archiveOf({std::monostate{}}));
    EXPECT_THAT(PropertyList::uids(plist_dict_get_item(list.root(), "NS.objects")), ElementsAre(0U));
}

TEST(KeyedArchiver, WritesNumbersAndBooleansWithTheirOwnTypes) {
    const PropertyList list(archiveOf(
        {true, false, std::int64_t{1}, std::int64_t{300}, std::int64_t{70000}, std::int64_t{0x123456789A}, 1.0}));
    const auto uids = PropertyList::uids(plist_dict_get_item(list.root(), "NS.objects"));
    ASSERT_EQ(uids.size(), 7U);
    std::uint8_t boolean = 0;
    plist_get_bool_val(list.object(uids[0]), &boolean);
    EXPECT_EQ(plist_get_node_type(list.object(uids[0])), PLIST_BOOLEAN);
    EXPECT_EQ(boolean, 1);
    plist_get_bool_val(list.object(uids[1]), &boolean);
    EXPECT_EQ(boolean, 0);
    std::vector<std::uint64_t> integers;
    for (std::size_t index = 2; index < 6; ++index) {
        integers.push_back(0);
        EXPECT_EQ(plist_get_node_type(list.object(uids[index])), PLIST_UINT);
        plist_get_uint_val(list.object(uids[index]), &integers.back());
    }
    EXPECT_THAT(integers, ElementsAre(1U, 300U, 70000U, 0x123456789AU));
    double real = 0;
    EXPECT_EQ(plist_get_node_type(list.object(uids[6])), PLIST_REAL);
    plist_get_real_val(list.object(uids[6]), &real);
    EXPECT_EQ(real, 1.0);
}

TEST(KeyedArchiver, WritesNegativeIntegersInEightBytes) {
    const Data archive = archiveOf({std::int64_t{-5}});
    const Data expected{0x13, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFF, 0xFB};
    EXPECT_NE(std::search(archive.begin(), archive.end(), expected.begin(), expected.end()), archive.end());
}

TEST(KeyedArchiver, TellsNumbersApartThatCompareEqualOrNotAtAll) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const PropertyList list(archiveOf({0.0, -0.0, nan, 2.5, nan, true, std::int64_t{1}, 1.0}));
    const auto uids = PropertyList::uids(plist_dict_get_item(list.root(), "NS.objects"));
    EXPECT_EQ(uids[2], uids[4]);
    const std::set<std::uint64_t> distinct(uids.begin(), uids.end());
    EXPECT_EQ(distinct.size(), 7U);
}

TEST(KeyedArchiver, WritesStringsOfEveryPlaneAndDataAsTheyStand) {
    const std::string text = "Grüße \xF0\x9D\x84\x9E 日本";
    const PropertyList list(archiveOf({text, std::string(), std::make_shared<const Data>(Data{0, 1, 255})}));
    const auto uids = PropertyList::uids(plist_dict_get_item(list.root(), "NS.objects"));
    EXPECT_EQ(PropertyList::string(list.object(uids[0])), text);
    EXPECT_EQ(PropertyList::string(list.object(uids[1])), "");
    std::uint64_t length = 0;
    const char* bytes = plist_get_data_ptr(list.object(uids[2]), &length);
    ASSERT_EQ(length, 3U);
    EXPECT_EQ(static_cast<std::uint8_t>(bytes[2]), 255);
}

TEST(KeyedArchiver, ReplacesBytesThatAreNoTextWhenItWritesAString) {
    const PropertyList list(archiveOf({std::string("a\xFF\xC0\xAF"
                                                   "b")}));
    const auto uids = PropertyList::uids(plist_dict_get_item(list.root(), "NS.objects"));
    EXPECT_EQ(PropertyList::string(list.object(uids[0])), "a\uFFFD\uFFFD\uFFFDb");
}

TEST(KeyedArchiver, WrapsAStringThatReadsLikeNil) {
    const PropertyList list(archiveOf({std::string("$null")}));
    const auto uids = PropertyList::uids(plist_dict_get_item(list.root(), "NS.objects"));
    ASSERT_NE(uids[0], 0U);
    EXPECT_EQ(PropertyList::string(plist_dict_get_item(list.object(uids[0]), "NS.string")), "$null");
    EXPECT_THAT(list.classesOf(list.object(uids[0])), ElementsAre("NSString", "NSObject"));
}

TEST(KeyedArchiver, StoresSharedObjectsOnce) {
    const auto shared = array({std::string("x")});
    const auto data = std::make_shared<const Data>(Data{7});
    const PropertyList list(archiveOf({shared, shared, data, data, std::string("x"), true, true}));
    const auto uids = PropertyList::uids(plist_dict_get_item(list.root(), "NS.objects"));
    EXPECT_EQ(uids[0], uids[1]);
    EXPECT_EQ(uids[2], uids[3]);
    EXPECT_EQ(uids[5], uids[6]);
    // null, two arrays, their one class, "x", the data and true.
    EXPECT_EQ(list.numberOfObjects(), 7U);
}

TEST(KeyedArchiver, ArchivesAnObjectUnderItsClassNameWithTheFieldsItEncodes) {
    const auto inner = std::make_shared<const Pair>(std::string("inner"), std::monostate{});
    const PropertyList list(KeyedArchiver::archivedDataWithRootObject(
        std::make_shared<const Pair>(array({inner, inner}), std::string("after"))));
    EXPECT_THAT(list.classesOf(list.root()), ElementsAre("Pair", "Base", "NSObject"));
    const plist_t second = list.object(PropertyList::uid(plist_dict_get_item(list.root(), "second")));
    EXPECT_EQ(PropertyList::string(second), "after");
    const plist_t elements = list.object(PropertyList::uid(plist_dict_get_item(list.root(), "first")));
    const auto uids = PropertyList::uids(plist_dict_get_item(elements, "NS.objects"));
    ASSERT_EQ(uids.size(), 2U);
    EXPECT_EQ(uids[0], uids[1]);
    const plist_t first = list.object(PropertyList::uid(plist_dict_get_item(list.object(uids[0]), "first")));
    EXPECT_EQ(PropertyList::string(first), "inner");
    EXPECT_EQ(PropertyList::uid(plist_dict_get_item(list.object(uids[0]), "second")), 0U);
}

// Makes what it holds anew whenever it is archived.
class Transient : public KeyedCoding {
public:
    std::vector<std::string> archivedClasses() const override { return {"Transient", "NSObject"}; }
    void encodeWithCoder(KeyedArchiver& coder) const override {
        coder.encodeObject(array({std::string("one")}), "first");
        coder.encodeObject(array({std::string("two")}), "second");
    }
};

TEST(KeyedArchiver, DoesNotTakeANewObjectForOneThatIsGone) {
    const PropertyList list(KeyedArchiver::archivedDataWithRootObject(std::make_shared<const Transient>()));
    EXPECT_NE(PropertyList::uid(plist_dict_get_item(list.root(), "first")),
        PropertyList::uid(plist_dict_get_item(list.root(), "second")));
}

TEST(KeyedArchiver, WritesArchivesOfManyObjects) {
    std::vector<ArchiveValue> elements;
    for (std::int64_t number = 0; number < 70000; ++number)
        elements.emplace_back(number);
    const PropertyList list(archiveOf(std::move(elements)));
    EXPECT_EQ(list.numberOfObjects(), 70003U);
}

} // namespace
} // namespace tarragon
