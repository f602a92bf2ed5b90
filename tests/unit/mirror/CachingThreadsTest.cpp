#include "MenuTitles.h"
#include "fake/FakePlatform.h"
#include "mirror/AppAccessibility.h"
#include "mirror/ProxyMenuItem.h"
#include "mirror/SystemFillingThreads.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <future>
#include <thread>

namespace tarragon {
namespace {

using testing::AnyOf;
using testing::ElementsAre;
using testing::IsEmpty;

// Threads that tell when the cache has begun to go.
class TellingThreads : public SystemFillingThreads {
public:
    explicit TellingThreads(std::atomic<bool>& closing)
        : _closing(closing) { }
    TellingThreads(const TellingThreads&) = delete;
    TellingThreads& operator=(const TellingThreads&) = delete;
    ~TellingThreads() override { _closing = true; }

private:
    std::atomic<bool>& _closing;
};

class CachingThreads : public testing::Test {
protected:
    // Runs the next call of whichever thread makes it once the flag is set.
    void holdNextCallUntil(const std::atomic<bool>& flag) {
        fake.accessibility.beforeCall(0, [this, &flag] {
            begun.set_value();
            while (!flag)
                std::this_thread::yield();
        });
    }

    FakePlatform fake;
    std::promise<void> begun;
};

TEST_F(CachingThreads, AskTheApplicationNothingMoreWhenTheReaderGoes) {
    const FakeApplication editor = fake.addApplication("Editor");
    FakeMenu file = editor.menu("File");
    for (int index = 0; index < 50; ++index)
        file.item("Item " + std::to_string(index));
    fake.activate(editor);
    std::atomic<bool> closing = false;
    auto reader = AppAccessibility::initWithFocusedApp(fake.platform(), std::make_unique<TellingThreads>(closing));
    reader->setShowApplicationMenu(false);
    reader->update();
    MenuItem item("File", "", "");
    const auto proxy = std::make_shared<ProxyMenuItem>(fake.accessibility);
    proxy->setItemAXUIElementRef(file.item());
    item.setTarget(proxy);
    fake.accessibility.clearCalls();
    holdNextCallUntil(closing);
    reader->cacheMenuForMenuItem(item);
    begun.get_future().wait();
    reader.reset();
    // The question under way: whether the attribute is listed, and its value.
    EXPECT_LE(fake.accessibility.callCount(), 2U);
}

TEST_F(CachingThreads, KeepNothingFromAMenuThatOpensWhileTheyFillIt) {
    const FakeApplication editor = fake.addApplication("Editor");
    const FakeMenu file = editor.menu("File").item("New").separator().item("Close");
    fake.activate(editor);
    const auto reader = AppAccessibility::initWithFocusedApp(fake.platform());
    for (int round = 0; round < 20; ++round) {
        begun = {};
        std::atomic<bool> opening = false;
        reader->setShowApplicationMenu(false);
        reader->update();
        reader->setShowApplicationMenu(true);
        reader->clearCacheForAppKey("Editor");
        MenuItem item("File", "", "");
        const auto proxy = std::make_shared<ProxyMenuItem>(fake.accessibility);
        proxy->setItemAXUIElementRef(file.item());
        item.setTarget(proxy);
        Menu bar("Bar");
        bar.addItem(item.copy());
        auto submenu = std::make_shared<Menu>("File");
        submenu->setDelegate(reader.get());
        bar.itemAtIndex(0)->setSubmenu(submenu);
        holdNextCallUntil(opening);
        reader->cacheMenuForMenuItem(item);
        begun.get_future().wait();
        opening = true;
        fake.menuPresenter.open(*submenu);
        fake.menuPresenter.closeMenus();
        ASSERT_THAT(titlesOf(*submenu), ElementsAre("New", "", "Close"));
    }
}

TEST_F(CachingThreads, ShowAMenuWholeOrForThisOnceEmptyWhileApplicationsSwitchAndEnd) {
    const FakeApplication editor = fake.addApplication("Editor");
    const FakeApplication viewer = fake.addApplication("Viewer");
    for (const FakeApplication& application : {editor, viewer}) {
        for (const char* title : {"Apple", "File", "Edit", "Format"}) {
            const FakeMenu menu = application.menu(title).item("One").separator().item("Two", {.mark = "x"});
            menu.submenu("More").item("Three");
        }
    }
    fake.activate(editor);
    auto reader = AppAccessibility::initWithFocusedApp(fake.platform());
    reader->setShowAppleMenu(true);
    int whole = 0;
    for (int round = 0; round < 40; ++round) {
        fake.activate(round % 2 ? editor : viewer);
        reader->setKeyEquivalents(round % 3 == 0);
        reader->update();
        for (const auto& item : reader->menu()->items()) {
            fake.menuPresenter.open(*item->submenu());
            const std::vector<std::string> titles = titlesOf(*item->submenu());
            EXPECT_THAT(titles, AnyOf(IsEmpty(), ElementsAre("One", "", "Two", "More")));
            whole += titles.empty() ? 0 : 1;
            for (const auto& child : item->submenu()->items()) {
                if (child->hasSubmenu()) {
                    fake.menuPresenter.open(*child->submenu());
                    EXPECT_THAT(titlesOf(*child->submenu()), AnyOf(IsEmpty(), ElementsAre("Three")));
                }
            }
            fake.menuPresenter.closeMenus();
        }
        if (round % 10 == 9)
            reader->clearCacheForAppKey("Editor");
        if (round == 30)
            fake.quit(viewer);
    }
    EXPECT_GT(whole, 0);
    // Fillings may still be going on.
    reader.reset();
    EXPECT_EQ(fake.accessibility.openBatches(), 0);
}

} // namespace
} // namespace tarragon
