#include "updates/UpdateDecision.h"

#include "updates/feed/ReleaseList.h"

#include <string>
#include <vector>

#include <gtest/gtest.h>

namespace tarragon {
namespace {

UpdateOutcome decide(const std::vector<Release>& releases, const std::string& running) {
    return decideUpdate(releases, running, compareVersions);
}

// The newer version that is found; "-" for none, "?" when it cannot be told.
std::string found(const std::vector<Release>& releases, const std::string& running) {
    const UpdateOutcome outcome = decide(releases, running);
    if (const auto* newer = std::get_if<NewerVersion>(&outcome))
        return newer->version;
    return std::holds_alternative<UpToDate>(outcome) ? "-" : "?";
}

Release release(const std::string& version) {
    return {.version = version};
}

TEST(UpdateDecision, ComparesVersionsNumberByNumber) {
    const struct {
        const char* listed;
        const char* running;
        bool isNewer;
    } rows[] = {
        {"0.10", "0.9", true},
        {"0.9", "0.10", false},
        {"0.1.1", "0.1", true},
        {"0.1", "0.1.0", false},
        {"0.1.0", "0.1.0", false},
        {"1.0", "0.99.99", true},
        {"2026.11", "2026.9", true},
        {"1.0~rc1", "1.0", false},
        {"1.0", "1.0~rc1", true},
        {"1.0~rc2", "1.0~rc1", true},
        {"1.0~rc10", "1.0~rc9", true},
        {"1.0a", "1.0", true},
        {"1.0.1", "1.0a", true},
        {"v1.1", "1.0", true},
        {"0.09", "0.9", false},
        {"99999999999999999999999", "1", true},
    };
    for (const auto& row : rows)
        EXPECT_EQ(found({release(row.listed)}, row.running), row.isNewer ? row.listed : "-")
            << row.listed << " for somebody with " << row.running;
}

TEST(UpdateDecision, FindsTheNewestWhateverTheOrder) {
    const std::vector<std::vector<const char*>> orders = {
        {"0.9", "0.10", "0.2"}, {"0.10", "0.9", "0.2"}, {"0.2", "0.9", "0.10"}};
    for (const auto& order : orders) {
        std::vector<Release> releases;
        releases.reserve(order.size());
        for (const char* version : order)
            releases.push_back(release(version));
        EXPECT_EQ(found(releases, "0.2"), "0.10");
        EXPECT_EQ(found(releases, "0.10"), "-");
        EXPECT_EQ(found(releases, "0.11"), "-");
    }
}

TEST(UpdateDecision, LeavesOutWhatIsBeingDeveloped) {
    const Release development{.version = "2.0", .isForEverybody = false};
    EXPECT_EQ(found({development, release("1.1")}, "1.0"), "1.1");
    EXPECT_EQ(found({development, release("1.0")}, "1.0"), "-");
    EXPECT_EQ(found({development}, "1.0"), "?");
}

TEST(UpdateDecision, CannotTellFromAListWithoutVersions) {
    for (const auto& releases : std::vector<std::vector<Release>>{{}, {release("")}, {release(std::string(65, '9'))}})
        EXPECT_EQ(decide(releases, "1.0"), UpdateOutcome(UpdateUnknown{UpdateProblem::NoRelease, {}}));
    EXPECT_EQ(found({release(std::string(64, '9'))}, "1.0"), std::string(64, '9'));
}

TEST(UpdateDecision, BringsNotesAndLinkOfTheNewest) {
    const UpdateOutcome outcome = decide({{.version = "1.1", .notes = "old", .link = "https://example.org/1.1"},
                                             {.version = "1.2", .notes = "Better.", .link = "https://example.org/1.2"}},
        "1.0");
    EXPECT_EQ(outcome, UpdateOutcome(NewerVersion{"1.2", "Better.", "https://example.org/1.2"}));
}

std::string linkOf(const std::string& link) {
    return std::get<NewerVersion>(decide({{.version = "2", .link = link}}, "1")).link;
}

TEST(UpdateDecision, BringsOnlyLinksToTheWeb) {
    EXPECT_EQ(linkOf("http://example.org/"), "http://example.org/");
    const std::string longest = "https://" + std::string(1992, 'a');
    EXPECT_EQ(linkOf(longest), longest);
    for (const std::string& link : {std::string("file:///etc/passwd"), std::string("javascript:alert(1)"),
             std::string("-option"), std::string("HTTPS"), std::string("https://example.org/ a"),
             std::string("https://example.org/\n"), std::string("ssh://example.org"), longest + "a"})
        EXPECT_EQ(linkOf(link), "") << link;
}

std::string notesOf(const std::string& notes) {
    return std::get<NewerVersion>(decide({{.version = "2", .notes = notes}}, "1")).notes;
}

TEST(UpdateDecision, ShortensNotesToWhatAScreenHolds) {
    EXPECT_EQ(notesOf(std::string(1500, 'a')), std::string(1500, 'a'));
    std::string shortened(1500, 'a');
    shortened += "…";
    EXPECT_EQ(notesOf(std::string(1501, 'a')), shortened);
    std::string lines;
    for (int line = 0; line < 23; ++line)
        lines += "x\n";
    EXPECT_EQ(notesOf(lines + "x"), lines + "x");
    EXPECT_EQ(notesOf(lines + "x\ny"), lines + "x…");
}

TEST(UpdateDecision, CutsNotesBetweenCharacters) {
    const std::string before(1499, 'a');
    EXPECT_EQ(notesOf(before + "äb"), before + "…");
    EXPECT_EQ(notesOf(before + "bä"), before + "b…");
}

} // namespace
} // namespace tarragon
