#include "ignore/IgnoreDictionary.h"
#include "ignore/KeyedUnarchiver.h"

#include <gmock/gmock.h>

#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace tarragon {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::Optional;

#ifdef TARRAGON_ARCHIVE_TOOL
constexpr const char* ArchiveTool = TARRAGON_ARCHIVE_TOOL;
#else
constexpr const char* ArchiveTool = "";
#endif

// Lists that are exchanged with programs of others.
class ForeignArchiveTest : public testing::Test {
protected:
    ForeignArchiveTest() {
        std::string pattern = fs::temp_directory_path() / "tarragon-archive-XXXXXX";
        _folder = mkdtemp(pattern.data());
    }
    ~ForeignArchiveTest() override { fs::remove_all(_folder); }

    std::string file() const { return _folder / "list"; }
    void writeFile(const Data& bytes) const {
        std::ofstream stream(file(), std::ios::binary);
        stream.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    }
    Data readFile() const {
        std::ifstream stream(file(), std::ios::binary);
        return {std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
    }
    // What the command prints; nothing when it fails.
    static std::optional<std::string> outputOf(const std::string& command) {
        FILE* pipe = popen(command.c_str(), "r");
        if (!pipe)
            return std::nullopt;
        std::string output;
        for (int character = std::fgetc(pipe); character != EOF; character = std::fgetc(pipe))
            output += static_cast<char>(character);
        return pclose(pipe) == 0 ? std::optional(output) : std::nullopt;
    }
    std::optional<std::string> runArchiveTool(const std::string& operation) const {
        return outputOf(std::string(ArchiveTool) + " " + operation + " " + file());
    }

private:
    fs::path _folder;
};

TEST_F(ForeignArchiveTest, AnotherImplementationReadsOurListsAtBothLevels) {
    if (!fs::exists(ArchiveTool))
        GTEST_SKIP() << "GNUstep is not installed";
    IgnoreDictionary dictionary;
    TarragonBlacklist editor;
    editor.setAppBundleID("org.example.Editor");
    editor.setAppName("Éditeur");
    // Without the title "$null", which that implementation does not even read from its own archives.
    editor.setWindowsWithTitlesToIgnore(std::vector<std::string>{"Untitled*", "日本 𝄞", "", "Untitled*"});
    dictionary.setEntry("org.example.Editor", editor);
    TarragonBlacklist clock;
    clock.setAppBundleID("org.example.Clock");
    clock.setIgnoreAllAppWindows(true);
    dictionary.setEntry("org.example.Clock", clock);
    writeFile(dictionary.archivedData());
    EXPECT_EQ(runArchiveTool("read"),
        "org.example.Clock|org.example.Clock|(null)|yes\n"
        "org.example.Editor|org.example.Editor|Éditeur|no\n  Untitled*\n  日本 𝄞\n  \n  Untitled*\n");
}

TEST_F(ForeignArchiveTest, AnotherImplementationReadsAnEmptyList) {
    if (!fs::exists(ArchiveTool))
        GTEST_SKIP() << "GNUstep is not installed";
    writeFile(IgnoreDictionary().archivedData());
    EXPECT_EQ(runArchiveTool("read"), "");
}

TEST_F(ForeignArchiveTest, AnotherImplementationReadsAListOfAThousandApplications) {
    if (!fs::exists(ArchiveTool))
        GTEST_SKIP() << "GNUstep is not installed";
    IgnoreDictionary dictionary;
    std::string expected;
    for (int number = 1000; number < 2000; ++number) {
        const std::string name = "org.example." + std::to_string(number);
        TarragonBlacklist entry;
        entry.setAppBundleID(name);
        entry.setAppName("App");
        dictionary.setEntry(name, entry);
        expected.append(name).append("|").append(name).append("|App|no\n");
    }
    writeFile(dictionary.archivedData());
    EXPECT_EQ(runArchiveTool("read"), expected);
}

TEST_F(ForeignArchiveTest, WeReadTheListsOfAnotherImplementation) {
    if (!fs::exists(ArchiveTool))
        GTEST_SKIP() << "GNUstep is not installed";
    ASSERT_TRUE(runArchiveTool("write"));
    const auto dictionary = IgnoreDictionary::unarchive(readFile());
    ASSERT_TRUE(dictionary);
    EXPECT_THAT(dictionary->allKeys(), testing::UnorderedElementsAre("org.example.Editor", "org.example.Clock"));
    const auto editor = dictionary->entry("org.example.Editor");
    ASSERT_TRUE(editor);
    EXPECT_THAT(editor->appBundleID(), Optional(std::string("org.example.Editor")));
    EXPECT_THAT(editor->appName(), Optional(std::string("Éditeur")));
    EXPECT_THAT(editor->ignoreAllAppWindows(), Optional(false));
    EXPECT_THAT(
        editor->windowsWithTitlesToIgnore(), Optional(ElementsAre("Untitled*", "日本 𝄞", "Untitled*", "Changing", "")));
    const auto clock = dictionary->entry("org.example.Clock");
    ASSERT_TRUE(clock);
    EXPECT_EQ(clock->appBundleID(), std::nullopt);
    EXPECT_THAT(clock->ignoreAllAppWindows(), Optional(true));
    EXPECT_EQ(clock->windowsWithTitlesToIgnore(), std::nullopt);
}

TEST_F(ForeignArchiveTest, WeReadValuesOfEveryKindFromAnotherImplementation) {
    if (!fs::exists(ArchiveTool))
        GTEST_SKIP() << "GNUstep is not installed";
    ASSERT_TRUE(runArchiveTool("write-graph"));
    const Data bytes = readFile();
    const KeyedUnarchiver unarchiver(bytes);
    const auto root = unarchiver.root();
    ASSERT_TRUE(root);
    EXPECT_TRUE(root->isKindOfClass("NSMutableArray"));
    const auto values = root->array();
    ASSERT_TRUE(values);
    ASSERT_EQ(values->size(), 12U);
    EXPECT_THAT((*values)[0].integerValue(), Optional(42));
    EXPECT_THAT((*values)[1].integerValue(), Optional(-42));
    EXPECT_THAT((*values)[2].integerValue(), Optional(1234567890123));
    EXPECT_THAT((*values)[3].realValue(), Optional(2.5));
    EXPECT_THAT((*values)[4].boolValue(), Optional(true));
    EXPECT_THAT((*values)[5].string(), Optional(std::string("text")));
    EXPECT_THAT((*values)[6].string(), Optional(std::string("mutable")));
    ASSERT_TRUE((*values)[7].data() && (*values)[8].data());
    EXPECT_THAT(*(*values)[7].data(), ElementsAre(1, 2));
    EXPECT_THAT(*(*values)[8].data(), ElementsAre(3, 4, 5));
    ASSERT_TRUE((*values)[9].array() && (*values)[10].array());
    EXPECT_THAT((*values)[10].array()->front().string(), Optional(std::string("shared")));
    const auto dictionary = (*values)[11].dictionary();
    ASSERT_TRUE(dictionary);
    EXPECT_EQ(dictionary->front().first, "key");
    EXPECT_THAT(dictionary->front().second.string(), Optional(std::string("value")));
    EXPECT_FALSE(unarchiver.isDamaged());
}

TEST_F(ForeignArchiveTest, APropertyListProgramAcceptsOurLists) {
    if (std::system("command -v plistutil >/dev/null") != 0)
        GTEST_SKIP() << "plistutil is not installed";
    IgnoreDictionary dictionary;
    TarragonBlacklist entry;
    entry.setWindowsWithTitlesToIgnore(std::vector<std::string>{"日本 𝄞"});
    dictionary.setEntry("org.example.Editor", entry);
    writeFile(dictionary.archivedData());
    const auto list = outputOf("plistutil -i " + file());
    ASSERT_TRUE(list);
    EXPECT_THAT(*list, testing::HasSubstr("<string>org.example.Editor</string>"));
    writeFile(entry.archivedData());
    const auto archivedEntry = outputOf("plistutil -i " + file());
    ASSERT_TRUE(archivedEntry);
    EXPECT_THAT(*archivedEntry, testing::HasSubstr("<string>日本 𝄞</string>"));
}

} // namespace
} // namespace tarragon
