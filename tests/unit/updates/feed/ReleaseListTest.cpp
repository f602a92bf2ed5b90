#include "updates/feed/ReleaseList.h"

#include <optional>
#include <string>
#include <vector>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarragon {
namespace {

using testing::ElementsAre;

std::vector<std::string> versionsOf(const std::string& document) {
    std::vector<std::string> versions;
    for (const Release& release : readReleaseList(document).value_or(std::vector<Release>{{.version = "none"}}))
        versions.push_back(release.version + (release.isForEverybody ? "" : " (development)"));
    return versions;
}

Release firstOf(const std::string& document) {
    const auto releases = readReleaseList(document);
    return releases && !releases->empty() ? releases->front() : Release{.version = "none"};
}

TEST(ReleaseList, IsReadWhereItStandsAlone) {
    EXPECT_THAT(versionsOf("<?xml version='1.0' encoding='UTF-8'?>\n<!-- ours -->\n<releases>"
                           "<release version='0.9' date='2026-01-01'/><release version='0.10'/></releases>"),
        testing::UnorderedElementsAre("0.9", "0.10"));
}

TEST(ReleaseList, IsReadFromAComponent) {
    EXPECT_THAT(versionsOf("<component type='desktop-application'><id>org.example.Tarragon</id><releases>"
                           "<release version='1.2'/></releases></component>"),
        ElementsAre("1.2"));
    EXPECT_THAT(versionsOf("<component><id>org.example.Tarragon</id></component>"), ElementsAre());
}

TEST(ReleaseList, TellsReleasesForEverybodyFromOthers) {
    EXPECT_THAT(versionsOf("<releases><release version='1' type='stable'/></releases>"), ElementsAre("1"));
    EXPECT_THAT(
        versionsOf("<releases><release version='2' type='development'/></releases>"), ElementsAre("2 (development)"));
    EXPECT_THAT(
        versionsOf("<releases><release version='2' type='unheard of'/></releases>"), ElementsAre("2 (development)"));
}

TEST(ReleaseList, TakesNoNoticeOfUrgencyAndDate) {
    EXPECT_THAT(versionsOf("<releases><release version='1' urgency='critical' date='2999-12-31'/></releases>"),
        ElementsAre("1"));
    EXPECT_THAT(
        versionsOf("<releases><release version='1' urgency='low' date='long ago'/></releases>"), ElementsAre("1"));
    EXPECT_THAT(versionsOf("<releases><release version='1' timestamp='99999999999'/></releases>"), ElementsAre("1"));
}

TEST(ReleaseList, BringsNotesAsPlainText) {
    EXPECT_EQ(firstOf("<releases><release version='1'><description><p>Faster &amp;\n  better.</p>"
                      "<ul><li>One</li><li>Two <em>more</em></li></ul></description></release></releases>")
                  .notes,
        "Faster & better.\n • One\n • Two more");
    EXPECT_EQ(firstOf("<releases><release version='1'/></releases>").notes, "");
}

TEST(ReleaseList, BringsNotesInOneLanguage) {
    EXPECT_EQ(firstOf("<releases><release version='1'><description><p>Hello</p><p xml:lang='de'>Hallo</p>"
                      "</description></release></releases>")
                  .notes,
        "Hello");
}

TEST(ReleaseList, BringsTheLinkToDetails) {
    EXPECT_EQ(firstOf("<releases><release version='1'><url type='details'>https://example.org/1</url></release>"
                      "</releases>")
                  .link,
        "https://example.org/1");
    EXPECT_EQ(firstOf("<releases><release version='1'><url>https://example.org/2</url></release></releases>").link,
        "https://example.org/2");
}

TEST(ReleaseList, MayBeEmptyOrLackVersions) {
    EXPECT_THAT(versionsOf("<releases/>"), ElementsAre());
    EXPECT_THAT(versionsOf("<releases><release/></releases>"), ElementsAre(""));
    EXPECT_THAT(versionsOf("<releases><other/>text</releases>"), ElementsAre());
}

TEST(ReleaseList, IsNoneWhenTheDocumentIsSomethingElse) {
    for (const char* document : {"", " ", "not found", "<html><body>404</body></html>", "<releases>",
             "<releases><release version='1'></releases>", "<releases", "{\"releases\":[]}", "<component>",
             "<release version='1'/>", "<components><component><releases/></component></components>"})
        EXPECT_EQ(readReleaseList(document), std::nullopt) << document;
    EXPECT_EQ(readReleaseList(std::string("\0\0\0", 3)), std::nullopt);
    EXPECT_EQ(readReleaseList("<releases>\xFF\xFE</releases>"), std::nullopt);
}

TEST(ReleaseList, IsNoneWhenTheDocumentDefinesWhatItUnfoldsTo) {
    std::string bomb = "<!DOCTYPE releases [<!ENTITY a 'aaaaaaaaaa'>";
    for (char name = 'b'; name <= 'j'; ++name) {
        bomb += std::string("<!ENTITY ") + name + " '";
        for (int time = 0; time < 10; ++time)
            bomb += std::string("&") + static_cast<char>(name - 1) + ";";
        bomb += "'>";
    }
    bomb += "]><releases><release version='1'><description><p>&j;</p></description></release></releases>";
    EXPECT_EQ(readReleaseList(bomb), std::nullopt);
    EXPECT_EQ(readReleaseList("<!DOCTYPE r [<!ENTITY x SYSTEM 'file:///etc/hostname'>]>"
                              "<releases><release version='1'><description><p>&x;</p></description></release>"
                              "</releases>"),
        std::nullopt);
    EXPECT_EQ(readReleaseList("<!DOCTYPE releases SYSTEM 'http://example.org/x.dtd'><releases/>"), std::nullopt);
}

TEST(ReleaseList, IsReadHoweverManyReleasesItHas) {
    std::string document = "<releases>";
    for (int number = 0; number < 100'000; ++number)
        document += "<release version='" + std::to_string(number) + "'/>";
    const auto releases = readReleaseList(document + "</releases>");
    ASSERT_TRUE(releases);
    EXPECT_EQ(releases->size(), 100'000U);
}

TEST(ReleaseList, IsNoneWhenItIsNestedWithoutEnd) {
    std::string deep;
    for (int level = 0; level < 100'000; ++level)
        deep += "<releases>";
    EXPECT_EQ(readReleaseList(deep), std::nullopt);
}

} // namespace
} // namespace tarragon
