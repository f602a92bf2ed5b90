#include "IgnoreListEditorFixture.h"

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace tarragon {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::UnorderedElementsAre;

#ifdef TARRAGON_ARCHIVE_TOOL
constexpr const char* ArchiveTool = TARRAGON_ARCHIVE_TOOL;
#else
constexpr const char* ArchiveTool = "";
#endif

// A list that a program of others wrote, with an implementation of archives that is not ours.
class ForeignListTest : public IgnoreListEditorFixture {
protected:
    void SetUp() override {
        if (!fs::exists(ArchiveTool))
            GTEST_SKIP() << "GNUstep is not installed";
        std::string pattern = fs::temp_directory_path() / "tarragon-foreign-XXXXXX";
        const fs::path folder = mkdtemp(pattern.data());
        std::string command = ArchiveTool;
        command += " write ";
        command += (folder / "list").string();
        ASSERT_EQ(std::system(command.c_str()), 0);
        std::ifstream stream(folder / "list", std::ios::binary);
        const Data bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
        stream.close();
        fs::remove_all(folder);
        ASSERT_TRUE(defaults.setValue(preference::IgnoreWindowList, bytes));
        master.awakeFromNib();
    }
    void selectKey(const std::string& key) { select(master.ignoreDictionary()->placeOf(key)); }
};

TEST_F(ForeignListTest, IsShown) {
    EXPECT_THAT(applications(), UnorderedElementsAre("Éditeur", "org.example.Clock"));
    selectKey("org.example.Editor");
    EXPECT_THAT(titles(), ElementsAre("Untitled*", "日本 𝄞", "Untitled*", "Changing", ""));
    EXPECT_FALSE(detail.ignoreAllApp());
    selectKey("org.example.Clock");
    EXPECT_THAT(titles(), IsEmpty());
    EXPECT_TRUE(detail.ignoreAllApp());
}

TEST_F(ForeignListTest, CanBeEdited) {
    selectKey("org.example.Clock");
    detail.addWindow();
    detail.tableViewSetObjectValue("Alarm*", 0);
    selectKey("org.example.Editor");
    detail.tableViewSetObjectValue("Changed", 3);
    EXPECT_THAT(storedTitles("Clock"), ElementsAre("Alarm*"));
    EXPECT_THAT(storedTitles("Editor"), ElementsAre("Untitled*", "日本 𝄞", "Untitled*", "", "Changed"));
}

} // namespace
} // namespace tarragon
