// The program in the user's language, in which the titles of applications stay as they are.
#include "EndToEndTest.h"

#include <algorithm>

namespace tarragon::e2e {

class LanguageTest : public WindowManagerTest {
protected:
    void TearDown() override {
        session().restartAgent();
        WindowManagerTest::TearDown();
    }

    // Whether the program's own menu has these titles, among others, when it runs with these additions to its
    // environment.
    bool ownMenuHas(const std::vector<std::string>& expected, const Environment& additions) {
        session().restartAgent(usualHotKey(), additions);
        TestApplication& application = launch(ApplicationKind::Mousepad);
        EXPECT_TRUE(popUp().openWith(application.expectedTitles()));
        const std::vector<std::string> titles = titlesOf(popUp().openByKeyboard({"Tarragon"}));
        EXPECT_TRUE(popUp().close());
        quit(application);
        return std::ranges::all_of(
            expected, [&](const std::string& title) { return std::ranges::count(titles, title) == 1; });
    }
};

TEST_P(LanguageTest, IsThatOfTheSession) {
    EXPECT_TRUE(ownMenuHas({"Über Tarragon …", "Einstellungen …", "Beenden"}, {{"LANGUAGE", "de"}}));
    EXPECT_TRUE(ownMenuHas({"À propos de Tarragon…", "Préférences…", "Quitter"}, {{"LC_ALL", "fr_FR.UTF-8"}}));
    EXPECT_TRUE(ownMenuHas({"Beenden"}, {{"LANGUAGE", "ja:de"}}));
    EXPECT_TRUE(ownMenuHas({"Quit"}, {{"LANGUAGE", "ja"}}));
}

INSTANTIATE_TEST_SUITE_P(Under, LanguageTest, testing::Values(WindowManager::Openbox), nameOfWindowManager);

} // namespace tarragon::e2e
