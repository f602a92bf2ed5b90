#include "fuzz/HostileList.h"

#include "fake/FakeDefaults.h"
#include "fake/FakeWorkspace.h"
#include "fuzz/IgnoreListCheck.h"
#include "ignore/IgnoreList.h"
#include "platform/PreferenceKeys.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <ctime>
#include <filesystem>
#include <fstream>
#include <iterator>

namespace tarragon {
namespace {

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool IsInstrumented = true;
#else
constexpr bool IsInstrumented = false;
#endif

class UntitledWindow : public WindowInFront {
public:
    std::optional<std::string> focusedWindowTitle() override { return "Untitled 3"; }
    bool isFocusedWindowFullScreen() override { return false; }
};

class HostileListTest : public testing::Test {
protected:
    HostileListTest() { workspace.setActiveApplication(RunningApplication{"Editor", 7, "org.example.Editor", ""}); }

    FakeDefaults defaults;
    FakeWorkspace workspace;
    UntitledWindow window;
    IgnoreList list{defaults, workspace, window, nullptr};
};

// The largest resident size since the last call, in bytes above what is resident now; nothing where the system does
// not tell.
std::optional<std::size_t> residentSize(const std::string& field) {
    std::ifstream status("/proc/self/status");
    for (std::string name; status >> name;) {
        std::size_t kibibytes = 0;
        if (name == field + ":" && status >> kibibytes)
            return kibibytes * 1024;
        status.ignore(1000, '\n');
    }
    return std::nullopt;
}

double processorSeconds() {
    return static_cast<double>(std::clock()) / CLOCKS_PER_SEC;
}

bool forgetPeakResidentSize() {
    std::ofstream references("/proc/self/clear_refs");
    references << "5" << std::flush;
    return references.good();
}

TEST_F(HostileListTest, TheListsAreSoundBeforeAnythingIsWrongWithThem) {
    for (const HostileList& sound : soundLists()) {
        defaults.setValue(preference::IgnoreWindowList, sound.bytes);
        EXPECT_TRUE(list.windowIsIgnored()) << sound.name;
    }
}

TEST_F(HostileListTest, NothingIsIgnoredByAHostileList) {
    for (const HostileList& hostile : hostileLists()) {
        defaults.setValue(preference::IgnoreWindowList, hostile.bytes);
        EXPECT_FALSE(list.windowIsIgnored()) << hostile.name;
    }
}

TEST_F(HostileListTest, TheNextIgnoreActionWritesASoundList) {
    for (const HostileList& hostile : hostileLists()) {
        defaults.setValue(preference::IgnoreWindowList, hostile.bytes);
        list.ignoreTitle();
        EXPECT_TRUE(list.windowIsIgnored()) << hostile.name;
        const auto dictionary = IgnoreDictionary::load(defaults);
        ASSERT_TRUE(dictionary) << hostile.name;
        const auto entry = dictionary->entry("org.example.Editor");
        ASSERT_TRUE(entry) << hostile.name;
        EXPECT_EQ(entry->windowsWithTitlesToIgnore(), std::vector<std::string>{"Untitled 3"}) << hostile.name;
    }
}

TEST_F(HostileListTest, AHostileListTakesLittleTime) {
    constexpr double Limit = IsInstrumented ? 1.0 : 0.05;
    for (const HostileList& hostile : hostileLists()) {
        defaults.setValue(preference::IgnoreWindowList, hostile.bytes);
        // The machine may be busy with something else, so the best of three attempts counts.
        double best = 1e9;
        for (int attempt = 0; attempt < 3 && best > Limit; ++attempt) {
            const double start = processorSeconds();
            list.windowIsIgnored();
            best = std::min(best, processorSeconds() - start);
        }
        EXPECT_LT(best, Limit) << hostile.name;
    }
}

TEST_F(HostileListTest, AHostileListTakesLittleMemory) {
    if (IsInstrumented || !forgetPeakResidentSize())
        GTEST_SKIP() << "peak memory cannot be measured here";
    constexpr std::size_t Limit = std::size_t{64} << 20U;
    for (const HostileList& hostile : hostileLists()) {
        defaults.setValue(preference::IgnoreWindowList, hostile.bytes);
        forgetPeakResidentSize();
        const std::size_t before = residentSize("VmRSS").value_or(0);
        list.windowIsIgnored();
        const std::optional<IgnoreDictionary> loaded = IgnoreDictionary::load(defaults);
        const std::size_t peak = residentSize("VmHWM").value_or(0);
        EXPECT_LT(peak, before + Limit) << hostile.name << (loaded ? ", which can be read" : "");
    }
}

TEST_F(HostileListTest, AListCutOffAnywhereIsNothing) {
    const Data sound = soundList();
    for (std::size_t length = 0; length < sound.size(); ++length) {
        defaults.setValue(
            preference::IgnoreWindowList, Data(sound.begin(), sound.begin() + static_cast<std::ptrdiff_t>(length)));
        ASSERT_FALSE(list.windowIsIgnored()) << length;
    }
}

TEST_F(HostileListTest, AListSurvivesAnyWrongByte) {
    const Data sound = soundList();
    for (std::size_t place = 0; place < sound.size(); ++place) {
        for (const unsigned flip : {0x01U, 0x10U, 0x80U, 0xFFU}) {
            Data bytes = sound;
            bytes[place] = static_cast<std::uint8_t>(bytes[place] ^ flip);
            ASSERT_EQ(complaintAboutIgnoreList(bytes), "") << place;
        }
    }
}

TEST(IgnoreListCorpus, EveryFileIsSurvived) {
    int count = 0;
    for (const auto& file : std::filesystem::directory_iterator(TARRAGON_FUZZ_CORPUS "/ignore_list")) {
        std::ifstream stream(file.path(), std::ios::binary);
        const Data bytes{std::istreambuf_iterator<char>(stream), std::istreambuf_iterator<char>()};
        EXPECT_EQ(complaintAboutIgnoreList(bytes), "") << file.path().filename();
        ++count;
    }
    EXPECT_GT(count, 0);
}

} // namespace
} // namespace tarragon
