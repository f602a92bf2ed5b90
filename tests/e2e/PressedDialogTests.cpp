// What a chosen item leaves its application in: a dialog that runs within the choosing itself.
#include "Agent.h"
#include "Desktop.h"
#include "Wait.h"

#include <X11/keysym.h>
#include <gtest/gtest.h>

#include <string>
#include <utility>

namespace tarragon::e2e {

// On a desktop of its own, where nothing else reads applications: those that somebody does tell him of every key first,
// and GTK 3 hangs at that in such a dialog.
TEST(PressedDialogTest, AnItemThatOpensOneLeavesTheKeysToTheUser) {
    Desktop desktop(WindowManager::Openbox);
    const auto application = desktop.start({"mousepad"});
    const auto activeTitle = [&] { return desktop.display().titleOf(desktop.display().activeWindow()); };
    for (const auto& [item, title] : {std::pair("Mousepad|File|Open...", "Open File"),
             std::pair("Mousepad|Help|About", "About Mousepad"), std::pair("Mousepad|File|Open...", "Open File")}) {
        // It may still be starting, or about to put its last dialog away.
        ASSERT_TRUE(waitUntil([&] { return Agent::run(desktop, {"press", item}).status == 0; })) << item;
        ASSERT_TRUE(waitUntil([&] { return activeTitle() == title; })) << title;
        desktop.input().tap(XK_a);
        // Out of the search that a letter begins, and then out of the dialog.
        ASSERT_TRUE(waitUntil([&] {
            desktop.input().tap(XK_Escape);
            return waitUntil(
                [&] { return activeTitle().ends_with("Mousepad") && activeTitle() != title; }, Duration(500));
        })) << title;
    }
}

} // namespace tarragon::e2e
