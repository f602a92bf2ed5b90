// The mirror, item by item, against what an independent reader says of the same application.
#include "EndToEndTest.h"

#include <iostream>

#include <nlohmann/json.hpp>

namespace tarragon::e2e {

class MirrorTest : public ApplicationTest {
protected:
    static std::string report(const std::vector<std::string>& sentences) {
        std::string text;
        for (const std::string& sentence : sentences)
            text += sentence + "\n";
        return text;
    }

    Menu mirror(const std::vector<std::string>& choice) {
        std::vector<std::string> arguments{"menus", "--json", "--depth", "0"};
        arguments.insert(arguments.end(), choice.begin(), choice.end());
        CommandResult result = tarragon(arguments);
        EXPECT_EQ(result.status, 0) << result.error;
        return result.status == 0 ? withNormalShortcuts(menuFromJson(nlohmann::json::parse(result.output))) : Menu{};
    }
};

TEST_P(MirrorTest, HasEveryItemOfTheApplicationInFront) {
    TestApplication& application = launch();
    Menu expected = application.expectedMirror();
    Menu actual = mirror({});
    EXPECT_EQ(report(differences(expected, actual)), "");
    std::cout << countItems(expected) << " items compared\n";
}

TEST_P(MirrorTest, HasEveryItemOfAnApplicationBehindAnother) {
    TestApplication& application = launch();
    Menu expected = application.expectedMirror();
    DesktopTest::launch(ApplicationKind::Terminal);
    Menu actual = mirror({"--pid", std::to_string(application.identifier())});
    // Without its window in front, an application may have fewer items enabled.
    EXPECT_EQ(countItems(actual), countItems(expected));
    EXPECT_EQ(titlesOf(actual), titlesOf(expected));
}

TEST_P(MirrorTest, StaysTrueWhenTheApplicationChanges) {
    TestApplication& application = launch();
    mirror({});
    bool before = application.switchState();
    ASSERT_TRUE(desktop().reader().press(application.identifier(), application.switchPath()));
    ASSERT_TRUE(waitUntil([&] { return application.switchState() != before; }));
    EXPECT_EQ(report(differences(application.expectedMirror(), mirror({}))), "");
}

INSTANTIATE_TEST_SUITE_P(Under, MirrorTest, testing::Combine(EveryWindowManager, EveryApplication), nameOfApplication);

} // namespace tarragon::e2e
