#include "ignore/KeyedUnarchiver.h"

#include "fuzz/RawPropertyList.h"
#include "ignore/KeyedArchiver.h"

#include <gmock/gmock.h>

#include <limits>
#include <memory>
#include <string>

namespace tarragon {
namespace {

using testing::Optional;

std::shared_ptr<const ArchiveArray> array(std::vector<ArchiveValue> elements) {
    return std::make_shared<const ArchiveArray>(ArchiveArray{std::move(elements)});
}

// An archive with the unarchiver that reads it.
class Archive {
public:
    explicit Archive(Data bytes)
        : _bytes(std::move(bytes))
        , unarchiver(_bytes) { }
    explicit Archive(const ArchiveValue& root)
        : Archive(KeyedArchiver::archivedDataWithRootObject(root)) { }

private:
    Data _bytes;

public:
    KeyedUnarchiver unarchiver;
};

TEST(KeyedUnarchiver, ReadsNumbersOfEverySize) {
    const std::vector<std::int64_t> integers{0, 1, 255, 256, 65535, 65536, 0xFFFFFFFF, 0x100000000,
        std::numeric_limits<std::int64_t>::max(), -1, std::numeric_limits<std::int64_t>::min()};
    const Archive archive(array({integers.begin(), integers.end()}));
    const auto values = archive.unarchiver.root()->array();
    ASSERT_TRUE(values);
    std::vector<std::int64_t> read;
    for (const ArchivedObject& value : *values)
        read.push_back(value.integerValue().value_or(42));
    EXPECT_EQ(read, integers);
}

TEST(KeyedUnarchiver, ReadsRealsOfBothSizes) {
    const Archive archive(array({2.5, -0.0}));
    EXPECT_THAT(archive.unarchiver.root()->array()->front().realValue(), Optional(2.5));
    RawPropertyList list;
    const std::uint32_t single = list.add({0x22, 0x40, 0x20, 0x00, 0x00});
    const Archive other(list.write(list.archive({list.string("$null"), single}, 1)));
    EXPECT_THAT(other.unarchiver.root()->realValue(), Optional(2.5));
}

TEST(KeyedUnarchiver, AnswersOnlyQuestionsThatSuitTheObject) {
    const auto data = std::make_shared<const Data>(Data{1});
    const Archive archive(array({std::string("text"), data, true, std::int64_t{7}, 2.5, array({}),
        std::make_shared<const ArchiveDictionary>(), std::monostate()}));
    const auto values = archive.unarchiver.root()->array();
    ASSERT_TRUE(values);
    ASSERT_EQ(values->size(), 8U);
    for (std::size_t index = 0; index < values->size(); ++index) {
        const ArchivedObject& value = (*values)[index];
        EXPECT_EQ(value.string().has_value(), index == 0) << index;
        EXPECT_EQ(value.data().has_value(), index == 1) << index;
        EXPECT_EQ(value.boolValue().has_value(), index >= 2 && index <= 4) << index;
        EXPECT_EQ(value.integerValue().has_value(), index == 3) << index;
        EXPECT_EQ(value.realValue().has_value(), index == 4) << index;
        EXPECT_EQ(value.array().has_value(), index == 5) << index;
        EXPECT_EQ(value.dictionary().has_value(), index == 6) << index;
        EXPECT_EQ(value.isNil(), index == 7) << index;
    }
    EXPECT_FALSE(archive.unarchiver.isDamaged());
}

TEST(KeyedUnarchiver, ReadsStringsOfEveryPlane) {
    const Archive archive(array({std::string("é"), std::string("日本 𝄞"), std::string("$null"), std::string()}));
    const auto values = archive.unarchiver.root()->array();
    ASSERT_TRUE(values);
    EXPECT_THAT((*values)[0].string(), Optional(std::string("é")));
    EXPECT_THAT((*values)[1].string(), Optional(std::string("日本 𝄞")));
    EXPECT_THAT((*values)[2].string(), Optional(std::string("$null")));
    EXPECT_THAT((*values)[3].string(), Optional(std::string()));
}

TEST(KeyedUnarchiver, ReplacesHalvesOfCharacters) {
    RawPropertyList list;
    // High half alone, low half alone, a pair, high half at the end.
    const std::uint32_t text = list.add({0x65, 0xD8, 0x34, 0xDD, 0x1E, 0xDD, 0x1E, 0x00, 0x61, 0xD8, 0x34});
    const Archive archive(list.write(list.archive({list.string("$null"), text}, 1)));
    EXPECT_THAT(archive.unarchiver.root()->string(), Optional(std::string("𝄞\uFFFDa\uFFFD")));
}

TEST(KeyedUnarchiver, KnowsTheClassesOfAnObject) {
    const Archive archive(std::make_shared<const ArchiveDictionary>(ArchiveDictionary{{}, Mutability::Mutable}));
    const auto root = archive.unarchiver.root();
    ASSERT_TRUE(root);
    EXPECT_TRUE(root->isKindOfClass("NSMutableDictionary"));
    EXPECT_TRUE(root->isKindOfClass("NSDictionary"));
    EXPECT_TRUE(root->isKindOfClass("NSObject"));
    EXPECT_FALSE(root->isKindOfClass("NSArray"));
}

TEST(KeyedUnarchiver, LeavesOutKeysThatAreNoStrings) {
    RawPropertyList list;
    const std::uint32_t dictionary = list.dictionary({
        {list.string("NS.keys"), list.array({list.uid(2), list.uid(3)})},
        {list.string("NS.objects"), list.array({list.uid(3), list.uid(3)})},
        {list.string("$class"), list.uid(4)},
    });
    const std::uint32_t record = list.dictionary({{list.string("$classname"), list.string("NSDictionary")}});
    const Archive archive(list.write(
        list.archive({list.string("$null"), dictionary, list.add({0x10, 7}), list.string("key"), record}, 1)));
    const auto entries = archive.unarchiver.root()->dictionary();
    ASSERT_TRUE(entries);
    ASSERT_EQ(entries->size(), 1U);
    EXPECT_EQ(entries->front().first, "key");
}

TEST(KeyedUnarchiver, ReadsReferencesOfEverySize) {
    for (const unsigned size : {1U, 2U, 3U, 4U, 8U}) {
        RawPropertyList list;
        Data uid{static_cast<std::uint8_t>(0x80U | (size - 1))};
        RawPropertyList::appendBigEndian(uid, 3, size);
        const std::uint32_t array = list.dictionary(
            {{list.string("NS.objects"), list.array({list.add(uid)})}, {list.string("$class"), list.uid(2)}});
        const std::uint32_t record = list.dictionary({{list.string("$classname"), list.string("NSArray")}});
        const Archive archive(list.write(list.archive({list.string("$null"), array, record, list.string("three")}, 1)));
        const auto elements = archive.unarchiver.root()->array();
        ASSERT_TRUE(elements) << size;
        EXPECT_THAT(elements->front().string(), Optional(std::string("three"))) << size;
    }
}

TEST(KeyedUnarchiver, ReadsArchivesWithMoreObjectsThanOneAndTwoBytesCount) {
    for (const std::int64_t count : {255, 300, 65535, 66000}) {
        std::vector<ArchiveValue> numbers;
        for (std::int64_t number = 0; number < count; ++number)
            numbers.emplace_back(number);
        const Archive archive(std::make_shared<const ArchiveDictionary>(
            ArchiveDictionary{{{"numbers", array(std::move(numbers))}, {"last", std::string("after all of them")}}}));
        const auto entries = archive.unarchiver.root()->dictionary();
        ASSERT_TRUE(entries) << count;
        ASSERT_EQ(entries->size(), 2U) << count;
        EXPECT_THAT((*entries)[1].second.string(), Optional(std::string("after all of them"))) << count;
        EXPECT_GT((*entries)[1].second.uid(), static_cast<std::uint64_t>(count)) << count;
    }
}

TEST(KeyedUnarchiver, KnowsAnObjectByItsClassNameOrByThoseOfItsBaseClasses) {
    const auto isEntry = [](const std::string& name, const std::vector<std::string>& chain) {
        RawPropertyList list;
        std::vector<std::uint32_t> classes;
        for (const std::string& link : chain)
            classes.push_back(list.string(link));
        const std::uint32_t object = list.dictionary({{list.string("$class"), list.uid(2)}});
        const std::uint32_t record = list.dictionary(
            {{list.string("$classname"), list.string(name)}, {list.string("$classes"), list.array(classes)}});
        const Archive archive(list.write(list.archive({list.string("$null"), object, record}, 1)));
        return archive.unarchiver.root()->isKindOfClass("Entry");
    };
    EXPECT_TRUE(isEntry("Entry", {}));
    EXPECT_TRUE(isEntry("Entry", {"Entry", "NSObject"}));
    EXPECT_TRUE(isEntry("Derived", {"Derived", "Entry", "NSObject"}));
    EXPECT_FALSE(isEntry("Derived", {"Derived", "NSObject"}));
    EXPECT_FALSE(isEntry("Entr", {"Entries", "entry"}));
}

TEST(KeyedUnarchiver, ReadsNothingFromWhatIsNoArchive) {
    RawPropertyList list;
    const Archive notAnArchive(list.write(list.array({})));
    EXPECT_FALSE(notAnArchive.unarchiver.root());
    const Archive notAPropertyList(Data{1, 2, 3});
    EXPECT_FALSE(notAPropertyList.unarchiver.root());
    EXPECT_TRUE(notAPropertyList.unarchiver.isDamaged());
}

TEST(KeyedUnarchiver, ReadsNothingFromArchivesOfOtherKindsAndVersions) {
    const auto archiveWith = [](const std::string& archiver, std::uint32_t version, const std::string& objectsKey) {
        RawPropertyList list;
        const std::uint32_t top = list.dictionary({{list.string("root"), list.uid(1)}});
        Data number{0x12};
        RawPropertyList::appendBigEndian(number, version, 4);
        const std::uint32_t objects = list.array({list.string("$null"), list.string("text")});
        return list.write(list.dictionary({
            {list.string("$version"), list.add(number)},
            {list.string("$archiver"), list.string(archiver)},
            {list.string("$top"), top},
            {list.string(objectsKey), objects},
        }));
    };
    EXPECT_TRUE(Archive(archiveWith("NSKeyedArchiver", 100000, "$objects")).unarchiver.root());
    EXPECT_FALSE(Archive(archiveWith("NRKeyedArchiver", 100000, "$objects")).unarchiver.root());
    EXPECT_FALSE(Archive(archiveWith("NSKeyedArchiver", 200000, "$objects")).unarchiver.root());
    EXPECT_FALSE(Archive(archiveWith("NSKeyedArchiver", 100000, "$object")).unarchiver.root());
}

TEST(KeyedUnarchiver, RemembersThatItHasMetDamage) {
    RawPropertyList list;
    const std::uint32_t object = list.dictionary({{list.string("key"), list.uid(99)}});
    const Archive archive(list.write(list.archive({list.string("$null"), object}, 1)));
    const auto root = archive.unarchiver.root();
    ASSERT_TRUE(root);
    EXPECT_TRUE(root->decodeObjectForKey("missing").isNil());
    EXPECT_FALSE(archive.unarchiver.isDamaged());
    EXPECT_TRUE(root->decodeObjectForKey("key").isNil());
    EXPECT_TRUE(archive.unarchiver.isDamaged());
}

} // namespace
} // namespace tarragon
