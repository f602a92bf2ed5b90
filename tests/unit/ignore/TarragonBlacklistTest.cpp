#include "ignore/TarragonBlacklist.h"

#include "fuzz/RawPropertyList.h"
#include "ignore/KeyedArchiver.h"
#include "ignore/KeyedUnarchiver.h"

#include <gmock/gmock.h>

#include <memory>
#include <string>

namespace tarragon {
namespace {

using testing::ElementsAre;
using testing::Optional;

TarragonBlacklist exampleEntry() {
    TarragonBlacklist entry;
    entry.setAppBundleID("org.example.Editor");
    entry.setAppName("Éditeur");
    entry.setIgnoreAllAppWindows(true);
    entry.setWindowsWithTitlesToIgnore(std::vector<std::string>{"Untitled*", "日本", "Untitled*"});
    return entry;
}

// An object that calls itself an entry and encodes what it is told to.
class Impostor : public KeyedCoding {
public:
    std::string className = "TarragonBlacklist";
    std::vector<std::pair<std::string, ArchiveValue>> fields;

    std::vector<std::string> archivedClasses() const override { return {className, "NSObject"}; }
    void encodeWithCoder(KeyedArchiver& coder) const override {
        for (const auto& [key, value] : fields)
            coder.encodeObject(value, key);
    }
    std::optional<TarragonBlacklist> unarchive() const {
        return TarragonBlacklist::unarchive(
            KeyedArchiver::archivedDataWithRootObject(std::make_shared<const Impostor>(*this)));
    }
};

TEST(TarragonBlacklist, BeginsIgnoringNothingAndWithoutItsStrings) {
    const TarragonBlacklist entry;
    EXPECT_EQ(entry.appBundleID(), std::nullopt);
    EXPECT_EQ(entry.appName(), std::nullopt);
    EXPECT_THAT(entry.ignoreAllAppWindows(), Optional(false));
    EXPECT_THAT(entry.windowsWithTitlesToIgnore(), Optional(ElementsAre()));
}

TEST(TarragonBlacklist, KeepsACopyOfTheTitlesThatAreSet) {
    std::vector<std::string> titles{"one"};
    TarragonBlacklist entry;
    entry.setWindowsWithTitlesToIgnore(titles);
    titles.emplace_back("two");
    EXPECT_THAT(entry.windowsWithTitlesToIgnore(), Optional(ElementsAre("one")));
}

TEST(TarragonBlacklist, ComesBackFromItsArchive) {
    const TarragonBlacklist entry = exampleEntry();
    const std::optional<TarragonBlacklist> read = TarragonBlacklist::unarchive(entry.archivedData());
    ASSERT_TRUE(read);
    EXPECT_EQ(*read, entry);
}

TEST(TarragonBlacklist, ComesBackWithNilInEveryPlace) {
    TarragonBlacklist entry;
    entry.setIgnoreAllAppWindows(std::nullopt);
    entry.setWindowsWithTitlesToIgnore(std::nullopt);
    const std::optional<TarragonBlacklist> read = TarragonBlacklist::unarchive(entry.archivedData());
    ASSERT_TRUE(read);
    EXPECT_EQ(*read, entry);
    EXPECT_FALSE(read->ignoresWindow("anything"));
}

TEST(TarragonBlacklist, ArchivesItsFourKeysAsObjectsUnderItsClassName) {
    const Data archive = exampleEntry().archivedData();
    const KeyedUnarchiver unarchiver(archive);
    const std::optional<ArchivedObject> root = unarchiver.root();
    ASSERT_TRUE(root);
    EXPECT_TRUE(root->isKindOfClass("TarragonBlacklist"));
    EXPECT_TRUE(root->isKindOfClass("NSObject"));
    EXPECT_THAT(root->decodeObjectForKey("appBundleID").string(), Optional(std::string("org.example.Editor")));
    EXPECT_THAT(root->decodeObjectForKey("appName").string(), Optional(std::string("Éditeur")));
    EXPECT_THAT(root->decodeObjectForKey("ignoreAllAppWindows").boolValue(), Optional(true));
    const auto titles = root->decodeObjectForKey("windowsWithTitlesToIgnore").array();
    ASSERT_TRUE(titles);
    ASSERT_EQ(titles->size(), 3U);
    EXPECT_THAT((*titles)[1].string(), Optional(std::string("日本")));
    EXPECT_FALSE(unarchiver.isDamaged());
}

TEST(TarragonBlacklist, EncodesItsKeysInTheirOrder) {
    const Data archive = exampleEntry().archivedData();
    const std::string bytes(archive.begin(), archive.end());
    std::size_t position = 0;
    for (const char* key : {"appBundleID", "appName", "ignoreAllAppWindows", "windowsWithTitlesToIgnore"}) {
        const std::size_t found = bytes.find(key);
        ASSERT_NE(found, std::string::npos) << key;
        EXPECT_GT(found, position) << key;
        position = found;
    }
}

TEST(TarragonBlacklist, LeavesNilWhereAKeyIsMissing) {
    Impostor impostor;
    const std::optional<TarragonBlacklist> empty = impostor.unarchive();
    ASSERT_TRUE(empty);
    EXPECT_EQ(empty->appBundleID(), std::nullopt);
    EXPECT_EQ(empty->appName(), std::nullopt);
    EXPECT_EQ(empty->ignoreAllAppWindows(), std::nullopt);
    EXPECT_EQ(empty->windowsWithTitlesToIgnore(), std::nullopt);

    impostor.fields = {{"appName", std::string("Editor")}};
    const std::optional<TarragonBlacklist> named = impostor.unarchive();
    ASSERT_TRUE(named);
    EXPECT_THAT(named->appName(), Optional(std::string("Editor")));
    EXPECT_EQ(named->windowsWithTitlesToIgnore(), std::nullopt);
}

TEST(TarragonBlacklist, IsNothingUnderAnotherClassName) {
    Impostor impostor;
    impostor.className = "Blacklist";
    EXPECT_FALSE(impostor.unarchive());
    EXPECT_FALSE(TarragonBlacklist::unarchive(archiveOfEmptyMutableDictionary()));
    EXPECT_FALSE(TarragonBlacklist::unarchive(KeyedArchiver::archivedDataWithRootObject(std::string("text"))));
    EXPECT_FALSE(TarragonBlacklist::unarchive(KeyedArchiver::archivedDataWithRootObject(std::monostate())));
}

TEST(TarragonBlacklist, TakesAValueOfAnotherKindForAMissingOne) {
    const ArchiveValue number = std::int64_t{1};
    const ArchiveValue text = std::string("text");
    const ArchiveValue texts = std::make_shared<const ArchiveArray>(ArchiveArray{{text}});
    const std::vector<std::pair<std::string, ArchiveValue>> sound{
        {"appBundleID", text}, {"appName", text}, {"ignoreAllAppWindows", true}, {"windowsWithTitlesToIgnore", texts}};
    const std::vector<ArchiveValue> wrong{number, texts, text, text};
    for (std::size_t place = 0; place < sound.size(); ++place) {
        Impostor impostor;
        impostor.fields = sound;
        impostor.fields[place].second = wrong[place];
        const std::optional<TarragonBlacklist> read = impostor.unarchive();
        ASSERT_TRUE(read) << place;
        EXPECT_EQ(read->appBundleID().has_value(), place != 0) << place;
        EXPECT_EQ(read->appName().has_value(), place != 1) << place;
        EXPECT_EQ(read->ignoreAllAppWindows().has_value(), place != 2) << place;
        EXPECT_EQ(read->windowsWithTitlesToIgnore().has_value(), place != 3) << place;
    }
}

TEST(TarragonBlacklist, KeepsTheTitlesAmongWhatElseStandsInTheirArray) {
    Impostor impostor;
    impostor.fields = {{"windowsWithTitlesToIgnore",
        std::make_shared<const ArchiveArray>(ArchiveArray{
            {std::string("one"), std::int64_t{1}, std::monostate(), std::string("two")}, Mutability::Mutable})}};
    const std::optional<TarragonBlacklist> read = impostor.unarchive();
    ASSERT_TRUE(read);
    EXPECT_THAT(read->windowsWithTitlesToIgnore(), Optional(ElementsAre("one", "two")));
}

TEST(TarragonBlacklist, TakesAnyNumberForItsBoolean) {
    for (const auto& [value, expected] : std::vector<std::pair<ArchiveValue, bool>>{
             {std::int64_t{0}, false}, {std::int64_t{1}, true}, {std::int64_t{-1}, true}, {0.0, false}, {0.5, true}}) {
        Impostor impostor;
        impostor.fields = {{"ignoreAllAppWindows", value}};
        const std::optional<TarragonBlacklist> read = impostor.unarchive();
        ASSERT_TRUE(read);
        EXPECT_THAT(read->ignoreAllAppWindows(), Optional(expected));
    }
}

TEST(TarragonBlacklist, KeepsATitleThatReadsLikeNil) {
    TarragonBlacklist entry;
    entry.setWindowsWithTitlesToIgnore(std::vector<std::string>{"$null", "", "\xF0\x9D\x84\x9E"});
    const std::optional<TarragonBlacklist> read = TarragonBlacklist::unarchive(entry.archivedData());
    ASSERT_TRUE(read);
    EXPECT_EQ(*read, entry);
}

TEST(TarragonBlacklist, IgnoresEveryWindowOfTheApplicationWhateverTheTitlesHold) {
    TarragonBlacklist entry;
    entry.setIgnoreAllAppWindows(true);
    EXPECT_TRUE(entry.ignoresWindow("any"));
    EXPECT_TRUE(entry.ignoresWindow(std::nullopt));
    entry.setWindowsWithTitlesToIgnore(std::nullopt);
    EXPECT_TRUE(entry.ignoresWindow("any"));
}

TEST(TarragonBlacklist, IgnoresAWindowWithTheStoredTitle) {
    TarragonBlacklist entry;
    entry.setWindowsWithTitlesToIgnore(std::vector<std::string>{"a\\*b", "Letter"});
    EXPECT_TRUE(entry.ignoresWindow("a\\*b"));
    EXPECT_TRUE(entry.ignoresWindow("a\\xb"));
    EXPECT_FALSE(entry.ignoresWindow("a*b"));
    EXPECT_FALSE(entry.ignoresWindow("letter"));
}

TEST(TarragonBlacklist, IgnoresAWindowThatMatchesAnyOfItsPatterns) {
    TarragonBlacklist entry;
    entry.setWindowsWithTitlesToIgnore(std::vector<std::string>{"Letter", "Untitled ?"});
    EXPECT_TRUE(entry.ignoresWindow("Untitled 3"));
    EXPECT_TRUE(entry.ignoresWindow("Letter"));
    EXPECT_FALSE(entry.ignoresWindow("Untitled 33"));
    EXPECT_FALSE(entry.ignoresWindow("letter"));
    entry.setWindowsWithTitlesToIgnore(std::vector<std::string>{"untitled*"});
    EXPECT_FALSE(entry.ignoresWindow("Untitled 3"));
}

TEST(TarragonBlacklist, DoesNotMatchAWindowWithoutTitleByItsPatterns) {
    TarragonBlacklist entry;
    entry.setWindowsWithTitlesToIgnore(std::vector<std::string>{"*", ""});
    EXPECT_FALSE(entry.ignoresWindow(std::nullopt));
    EXPECT_TRUE(entry.ignoresWindow(""));
}

TEST(TarragonBlacklist, RecognisesATitleThatIsNoTextByWhatWasStoredForIt) {
    const std::string title("broken \xFF title with a \0 in it", 29);
    TarragonBlacklist entry;
    entry.setWindowsWithTitlesToIgnore(std::vector<std::string>{title});
    const std::optional<TarragonBlacklist> read = TarragonBlacklist::unarchive(entry.archivedData());
    ASSERT_TRUE(read);
    EXPECT_TRUE(read->ignoresWindow(title));
}

TEST(TarragonBlacklist, RecognisesATitleWithANullCharacterThatAnotherProgramStored) {
    const std::string title("a\0b", 3);
    RawPropertyList list;
    const std::uint32_t entry = list.dictionary(
        {{list.string("windowsWithTitlesToIgnore"), list.uid(2)}, {list.string("$class"), list.uid(4)}});
    const std::uint32_t array =
        list.dictionary({{list.string("NS.objects"), list.array({list.uid(3)})}, {list.string("$class"), list.uid(5)}});
    const std::uint32_t entryClass = list.dictionary({{list.string("$classname"), list.string("TarragonBlacklist")}});
    const std::uint32_t arrayClass = list.dictionary({{list.string("$classname"), list.string("NSArray")}});
    const auto read = TarragonBlacklist::unarchive(
        list.write(list.archive({list.string("$null"), entry, array, list.string(title), entryClass, arrayClass}, 1)));
    ASSERT_TRUE(read);
    EXPECT_TRUE(read->ignoresWindow(title));
    EXPECT_FALSE(read->ignoresWindow("a"));
}

} // namespace
} // namespace tarragon
