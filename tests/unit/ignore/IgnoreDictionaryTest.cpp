#include "ignore/IgnoreDictionary.h"

#include "fake/FakeDefaults.h"
#include "fake/RecordingLog.h"
#include "fuzz/RawPropertyList.h"
#include "ignore/KeyedArchiver.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::Optional;

TarragonBlacklist entryNamed(const std::string& name) {
    TarragonBlacklist entry;
    entry.setAppName(name);
    return entry;
}

Data archiveOf(ArchiveDictionary dictionary) {
    return KeyedArchiver::archivedDataWithRootObject(std::make_shared<const ArchiveDictionary>(std::move(dictionary)));
}

std::shared_ptr<const Data> entryData(const std::string& name) {
    return std::make_shared<const Data>(entryNamed(name).archivedData());
}

// More than is read of one list.
std::string tooLongText() {
    std::string text;
    text.resize(9'000'000, 'x');
    return text;
}

TEST(IgnoreDictionary, IsArchivedEmptyAsTheDefaultOfItsSetting) {
    EXPECT_EQ(IgnoreDictionary().archivedData(), archiveOfEmptyMutableDictionary());
    const auto read = IgnoreDictionary::unarchive(archiveOfEmptyMutableDictionary());
    ASSERT_TRUE(read);
    EXPECT_EQ(read->count(), 0U);
}

TEST(IgnoreDictionary, ComesBackFromItsArchiveInOrder) {
    IgnoreDictionary dictionary;
    dictionary.setEntry("org.zebra", entryNamed("Zebra"));
    dictionary.setEntry("org.ant", entryNamed("Ant"));
    const auto read = IgnoreDictionary::unarchive(dictionary.archivedData());
    ASSERT_TRUE(read);
    EXPECT_THAT(read->allKeys(), ElementsAre("org.zebra", "org.ant"));
    ASSERT_TRUE(read->entry("org.ant"));
    EXPECT_THAT(read->entry("org.ant")->appName(), Optional(std::string("Ant")));
    EXPECT_FALSE(read->entry("org.other"));
}

TEST(IgnoreDictionary, ReplacesAnEntryInItsPlaceAndRemovesIt) {
    IgnoreDictionary dictionary;
    dictionary.setEntry("a", entryNamed("A"));
    dictionary.setEntry("b", entryNamed("B"));
    dictionary.setEntry("a", entryNamed("C"));
    EXPECT_THAT(dictionary.allKeys(), ElementsAre("a", "b"));
    EXPECT_THAT(dictionary.entry("a")->appName(), Optional(std::string("C")));
    dictionary.removeEntry("a");
    dictionary.removeEntry("unknown");
    EXPECT_THAT(dictionary.allKeys(), ElementsAre("b"));
}

TEST(IgnoreDictionary, AnswersByPlaceAsByKey) {
    ArchiveDictionary stored;
    stored.entries.emplace_back("org.zebra", entryData("Zebra"));
    stored.entries.emplace_back("org.number", ArchiveValue(std::int64_t{5}));
    const auto dictionary = IgnoreDictionary::unarchive(archiveOf(stored));
    ASSERT_TRUE(dictionary);
    EXPECT_EQ(dictionary->keyAt(1), "org.number");
    EXPECT_THAT(dictionary->entryAt(0), Optional(entryNamed("Zebra")));
    EXPECT_EQ(dictionary->entryAt(1), std::nullopt);
    EXPECT_EQ(dictionary->placeOf("org.number"), 1U);
    EXPECT_EQ(dictionary->placeOf("org.ant"), std::nullopt);
}

TEST(IgnoreDictionary, ReadsOneEntryOutOfMany) {
    IgnoreDictionary dictionary;
    dictionary.setEntry("a", entryNamed("A"));
    dictionary.setEntry("b", entryNamed("B"));
    const Data archive = dictionary.archivedData();
    const auto entry = IgnoreDictionary::unarchiveEntry(archive, "b");
    ASSERT_TRUE(entry);
    EXPECT_THAT(entry->appName(), Optional(std::string("B")));
    EXPECT_FALSE(IgnoreDictionary::unarchiveEntry(archive, "c"));
    EXPECT_FALSE(IgnoreDictionary::unarchiveEntry({}, "b"));
}

TEST(IgnoreDictionary, ReadsImmutableDictionariesAsWell) {
    EXPECT_TRUE(IgnoreDictionary::unarchiveEntry(archiveOf({{{"a", entryData("A")}}}), "a"));
}

// An object of a class that nobody knows.
class Stranger : public KeyedCoding {
public:
    std::vector<std::string> archivedClasses() const override { return {"Stranger", "NSObject"}; }
    void encodeWithCoder(KeyedArchiver& coder) const override { coder.encodeObject(std::string("x"), "x"); }
};

TEST(IgnoreDictionary, KeepsValuesThatAreNoEntriesAsTheyAre) {
    const auto shared = std::make_shared<const ArchiveArray>(
        ArchiveArray{{std::string("$null"), std::monostate(), std::int64_t{-3}, 0.5}, Mutability::Mutable});
    ArchiveDictionary stored{{{"text", std::string("text")}, {"entry", entryData("B")}, {"nil", std::monostate()},
                                 {"flag", true}, {"shared", shared}, {"again", shared},
                                 {"dictionary",
                                     std::make_shared<const ArchiveDictionary>(ArchiveDictionary{
                                         {{"in it", shared}, {"data", std::make_shared<const Data>(Data{1, 2})}}})}},
        Mutability::Mutable};
    const Data bytes = archiveOf(stored);
    const auto read = IgnoreDictionary::unarchive(bytes);
    ASSERT_TRUE(read);
    EXPECT_THAT(read->allKeys(), ElementsAre("text", "entry", "nil", "flag", "shared", "again", "dictionary"));
    EXPECT_EQ(read->archivedData(), bytes);
    EXPECT_FALSE(read->entry("text"));
    EXPECT_FALSE(read->entry("shared"));
    EXPECT_TRUE(read->entry("entry"));
    EXPECT_FALSE(IgnoreDictionary::unarchiveEntry(bytes, "text"));
}

TEST(IgnoreDictionary, LeavesOutObjectsOfClassesOfTheirOwn) {
    const auto stranger = std::make_shared<const Stranger>();
    const auto array = std::make_shared<const ArchiveArray>(ArchiveArray{{stranger}});
    const auto read = IgnoreDictionary::unarchive(archiveOf({{{"a", stranger}, {"b", entryData("B")}, {"c", array}}}));
    ASSERT_TRUE(read);
    EXPECT_THAT(read->allKeys(), ElementsAre("b"));
}

TEST(IgnoreDictionary, SaysInTheLogWhatItCannotReadOrLeavesOut) {
    RecordingLog log;
    EXPECT_FALSE(IgnoreDictionary::unarchive({}));
    EXPECT_THAT(log.takeLines(), ElementsAre("settings: the stored ignore list cannot be read"));
    const auto damaged = std::make_shared<const Data>(Data{1, 2, 3});
    const Data bytes = archiveOf({{{"org.bad", damaged}, {"stranger", std::make_shared<const Stranger>()}}});
    EXPECT_FALSE(IgnoreDictionary::unarchiveEntry(bytes, "org.bad"));
    EXPECT_THAT(log.takeLines(), ElementsAre("settings: the ignore list's entry for org.bad cannot be read"));
    EXPECT_TRUE(IgnoreDictionary::unarchive(bytes));
    EXPECT_THAT(log.takeLines(), ElementsAre("settings: left out of the ignore list: what is under stranger"));
    EXPECT_FALSE(IgnoreDictionary::unarchiveEntry(bytes, "org.other"));
    EXPECT_THAT(log.takeLines(), ElementsAre());
}

TEST(IgnoreDictionary, ListsAKeyThatIsStoredTwiceOnce) {
    const auto read = IgnoreDictionary::unarchive(archiveOf({{{"a", entryData("A")}, {"a", entryData("B")}}}));
    ASSERT_TRUE(read);
    EXPECT_THAT(read->allKeys(), ElementsAre("a"));
    ASSERT_TRUE(read->entry("a"));
    EXPECT_THAT(read->entry("a")->appName(), Optional(std::string("A")));
}

TEST(IgnoreDictionary, KeepsAnEntryThatDoesNotUnarchive) {
    const auto damaged = std::make_shared<const Data>(Data{1, 2, 3});
    const auto read = IgnoreDictionary::unarchive(archiveOf({{{"a", damaged}, {"b", entryData("B")}}}));
    ASSERT_TRUE(read);
    EXPECT_THAT(read->allKeys(), ElementsAre("a", "b"));
    EXPECT_FALSE(read->entry("a"));
    EXPECT_TRUE(read->entry("b"));
}

TEST(IgnoreDictionary, IsNothingWhenTheRootIsNoDictionary) {
    EXPECT_FALSE(IgnoreDictionary::unarchive(KeyedArchiver::archivedDataWithRootObject(std::string("text"))));
    EXPECT_FALSE(IgnoreDictionary::unarchive(std::span<const std::uint8_t>(
        KeyedArchiver::archivedDataWithRootObject(std::make_shared<const ArchiveArray>()))));
    EXPECT_FALSE(IgnoreDictionary::unarchive(entryNamed("A").archivedData()));
}

TEST(IgnoreDictionary, ComesOutOfASettingThatHoldsData) {
    FakeDefaults defaults;
    EXPECT_FALSE(IgnoreDictionary::load(defaults));
    defaults.setValue("IgnoreWindowList", std::string("bplist00"));
    EXPECT_FALSE(IgnoreDictionary::load(defaults));
    defaults.setValue("IgnoreWindowList", Data{1, 2, 3});
    EXPECT_FALSE(IgnoreDictionary::load(defaults));
    defaults.setValue("IgnoreWindowList", archiveOfEmptyMutableDictionary());
    EXPECT_TRUE(IgnoreDictionary::load(defaults));
}

TEST(IgnoreDictionary, IsStoredInItsSetting) {
    FakeDefaults defaults;
    IgnoreDictionary dictionary;
    dictionary.setEntry("a", entryNamed("A"));
    EXPECT_TRUE(dictionary.store(defaults));
    EXPECT_THAT(defaults.storedValue("IgnoreWindowList"), Optional(DefaultsValue(dictionary.archivedData())));
}

TEST(IgnoreDictionary, KeepsTheOldEntryWhenTheNewOneCouldNotBeReadAgain) {
    IgnoreDictionary dictionary;
    dictionary.setEntry("a", entryNamed("A"));
    EXPECT_FALSE(dictionary.setEntry("a", entryNamed(tooLongText())));
    ASSERT_TRUE(dictionary.entry("a"));
    EXPECT_THAT(dictionary.entry("a")->appName(), Optional(std::string("A")));
}

TEST(IgnoreDictionary, IsNotStoredWhenItCouldNotBeReadAgain) {
    FakeDefaults defaults;
    IgnoreDictionary dictionary;
    dictionary.setEntry(tooLongText(), entryNamed("A"));
    EXPECT_FALSE(dictionary.store(defaults));
    EXPECT_FALSE(defaults.storedValue("IgnoreWindowList"));
}

TEST(IgnoreDictionary, FindsAnIdentifierWithANullCharacterHoweverItIsStored) {
    const std::string identifier("a\0b", 3);
    RawPropertyList list;
    const Data entry = entryNamed("A").archivedData();
    Data data = RawPropertyList::marker(0x40, entry.size());
    data.insert(data.end(), entry.begin(), entry.end());
    const std::uint32_t dictionary = list.dictionary({
        {list.string("NS.keys"), list.array({list.uid(2)})},
        {list.string("NS.objects"), list.array({list.uid(3)})},
        {list.string("$class"), list.uid(4)},
    });
    const std::uint32_t record = list.dictionary({{list.string("$classname"), list.string("NSDictionary")}});
    const Data stored = list.write(list.archive(
        {list.string("$null"), dictionary, list.string(identifier), list.add(std::move(data)), record}, 1));
    EXPECT_TRUE(IgnoreDictionary::unarchiveEntry(stored, identifier));
    const auto read = IgnoreDictionary::unarchive(stored);
    ASSERT_TRUE(read);
    EXPECT_TRUE(read->entry(identifier));
    EXPECT_TRUE(IgnoreDictionary::unarchiveEntry(read->archivedData(), identifier));
}

TEST(IgnoreDictionary, FindsAnIdentifierThatIsNoTextUnderWhatWasStoredForIt) {
    IgnoreDictionary dictionary;
    dictionary.setEntry("a\xFF", entryNamed("A"));
    EXPECT_TRUE(IgnoreDictionary::unarchiveEntry(dictionary.archivedData(), "a\xFF"));
    EXPECT_TRUE(dictionary.entry("a\xFF"));
}

} // namespace
} // namespace tarragon
