#include "ignore/IgnoreDictionary.h"

#include "fake/FakeDefaults.h"
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

TEST(IgnoreDictionary, LeavesOutValuesThatAreNoData) {
    const auto read = IgnoreDictionary::unarchive(
        archiveOf({{{"a", std::string("text")}, {"b", entryData("B")}, {"c", std::monostate()}, {"d", true}}}));
    ASSERT_TRUE(read);
    EXPECT_THAT(read->allKeys(), ElementsAre("b"));
}

TEST(IgnoreDictionary, ListsAKeyThatIsStoredTwiceOnce) {
    const auto read = IgnoreDictionary::unarchive(archiveOf({{{"a", entryData("A")}, {"a", entryData("B")}}}));
    ASSERT_TRUE(read);
    EXPECT_THAT(read->allKeys(), ElementsAre("a"));
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

TEST(IgnoreDictionary, FindsAnIdentifierThatIsNoTextUnderWhatWasStoredForIt) {
    IgnoreDictionary dictionary;
    dictionary.setEntry("a\xFF", entryNamed("A"));
    EXPECT_TRUE(IgnoreDictionary::unarchiveEntry(dictionary.archivedData(), "a\xFF"));
    EXPECT_TRUE(dictionary.entry("a\xFF"));
}

} // namespace
} // namespace tarragon
