// Breaks every single accessibility call of a rebuild and of an opening in turn, in every way that the fake desktop
// knows, and expects a mirror that can be used each time.
#include "ReaderTest.h"

#include "fake/FakeFillingThreads.h"
#include "mirror/ProxyMenuItem.h"

#include <iostream>

namespace tarragon {
namespace {

using testing::ElementsAre;

using Damage = std::function<void(FakePlatform&, const FakeApplication&, const FakeMenu&)>;

// One desktop for one case: everything that a menu can hold, and the things that can happen to it.
class Case {
public:
    explicit Case(const std::string& name = "Mail")
        : application(fake.addApplication(name)) {
        file.item("New").separator().item("Close", {.mark = "x", .commandCharacter = "W", .commandModifiers = 1});
        const Element close = file.itemElement("Close");
        file.item("Close All", {.commandGlyph = 111, .primary = close, .shortcutText = "F1"});
        file.submenu("Open Recent").item("Letter");
        services.item("Hidden").item("Shown", {.size = Size{1, 1}});
        fake.activate(application);
        reader = AppAccessibility::initWithFocusedApp(fake.platform(), std::make_unique<FakeFillingThreads>(work));
        reader->setFoldAlternateItems(true);
        reader->setKeyEquivalents(true);
    }
    // The reader goes while the desktop is still there.
    ~Case() { reader.reset(); }
    Case(const Case&) = delete;
    Case& operator=(const Case&) = delete;

    std::size_t callsSoFar() const { return fake.accessibility.callCount(); }

    void openEverything() {
        fake.menuPresenter.open(*reader->menu());
        openBelow(*reader->menu(), 0);
        fake.menuPresenter.closeMenus();
    }

    // The mirror holds only what can be shown and chosen.
    void expectUsable() {
        EXPECT_EQ(fake.accessibility.openBatches(), 0);
        EXPECT_LE(fake.accessibility.secondsWaited(), 2.0);
        expectUsable(*reader->menu(), 0);
    }

    // Once the trouble is over, one more update shows everything again.
    void expectRecovery() {
        fake.accessibility.clearFaults();
        if (!fake.accessibility.exists(application.element()))
            return;
        reader->update();
        openEverything();
        expectUsable();
    }

    FakePlatform fake;
    FakeApplication application;
    FakeMenu file = application.menu("File");
    FakeMenu services = application.menu("Services");
    std::shared_ptr<FakeFillingThreads::Work> work = std::make_shared<FakeFillingThreads::Work>();
    std::shared_ptr<AppAccessibility> reader;

private:
    void openBelow(Menu& menu, int depth) {
        // A menu that holds itself could be opened for ever.
        if (depth == 3)
            return;
        // Opening a menu may change it.
        const auto items = menu.items();
        for (const auto& item : items) {
            if (item->hasSubmenu()) {
                fake.menuPresenter.open(*item->submenu());
                openBelow(*item->submenu(), depth + 1);
            }
        }
    }

    void expectUsable(const Menu& menu, int depth) {
        ASSERT_LE(depth, 4);
        ASSERT_LE(menu.numberOfItems(), 20U);
        for (const auto& item : menu.items()) {
            EXPECT_EQ(item->menu(), &menu);
            if (item->isSeparatorItem()) {
                EXPECT_EQ(item->target(), nullptr);
            } else {
                const auto proxy = std::dynamic_pointer_cast<ProxyMenuItem>(item->target());
                ASSERT_NE(proxy, nullptr);
                EXPECT_TRUE(proxy->itemAXUIElementRef());
                EXPECT_FALSE(item->title().empty());
                if (!item->hasSubmenu())
                    proxy->clickMenuItem();
            }
            if (item->hasSubmenu())
                expectUsable(*item->submenu(), depth + 1);
        }
    }
};

enum class Step { Rebuild, Opening };

// Prepares the case up to the step, breaks its n-th call and takes the step.
void runBroken(Step step, const std::function<void(Case&)>& breakCall) {
    Case each;
    if (step == Step::Opening)
        each.reader->update();
    each.fake.accessibility.clearCalls();
    breakCall(each);
    if (step == Step::Rebuild)
        each.reader->update();
    each.openEverything();
    each.expectUsable();
    each.expectRecovery();
}

std::size_t callsOf(Step step) {
    Case each;
    if (step == Step::Opening)
        each.reader->update();
    each.fake.accessibility.clearCalls();
    if (step == Step::Rebuild)
        each.reader->update();
    else
        each.openEverything();
    return each.callsSoFar();
}

class FaultSweep : public testing::Test {
protected:
    static void report(const char* what, std::size_t cases) {
        std::cout << "[   CASES  ] " << what << ": " << cases << '\n';
        RecordProperty("cases", static_cast<int>(cases));
    }
};

TEST_F(FaultSweep, LeavesAUsableMirrorWhicheverCallFails) {
    std::size_t cases = 0;
    for (const Step step : {Step::Rebuild, Step::Opening}) {
        const std::size_t calls = callsOf(step);
        ASSERT_GT(calls, 40U);
        for (const FakeFault fault :
            {FakeFault::Dead, FakeFault::Slow, FakeFault::Refusing, FakeFault::WrongType, FakeFault::Disappearing}) {
            for (std::size_t call = 0; call < calls; ++call, ++cases) {
                SCOPED_TRACE(testing::Message() << "fault " << static_cast<int>(fault) << " at call " << call);
                runBroken(step, [&](Case& each) { each.fake.accessibility.failCall(call, fault); });
            }
        }
    }
    report("one call failed", cases);
}

TEST_F(FaultSweep, LeavesAUsableMirrorWheneverTheApplicationGoesWrongForGood) {
    std::size_t cases = 0;
    for (const Step step : {Step::Rebuild, Step::Opening}) {
        const std::size_t calls = callsOf(step);
        for (const FakeFault fault : {FakeFault::Dead, FakeFault::Slow, FakeFault::Refusing, FakeFault::WrongType}) {
            for (std::size_t call = 0; call < calls; ++call, ++cases) {
                SCOPED_TRACE(testing::Message() << "fault " << static_cast<int>(fault) << " from call " << call);
                runBroken(step, [&](Case& each) {
                    each.fake.accessibility.beforeCall(call, [&each, fault] {
                        each.fake.accessibility.setProcessFault(each.application.processIdentifier(), fault);
                    });
                });
            }
        }
    }
    report("application gone wrong from one call on", cases);
}

TEST_F(FaultSweep, LeavesAUsableMirrorWheneverTheMenusChange) {
    const std::vector<Damage> damages{
        [](FakePlatform&, const FakeApplication&, const FakeMenu& file) { file.remove("Close"); },
        [](FakePlatform&, const FakeApplication&, const FakeMenu& file) { file.clear(); },
        [](FakePlatform&, const FakeApplication&, const FakeMenu& file) { file.item("Late").submenu("Later"); },
        [](FakePlatform& fake, const FakeApplication&, const FakeMenu& file) {
            fake.accessibility.destroy(file.item());
        },
        [](FakePlatform& fake, const FakeApplication& application, const FakeMenu&) { fake.quit(application); },
        [](FakePlatform& fake, const FakeApplication&, const FakeMenu&) { fake.deactivate(); },
        [](FakePlatform& fake, const FakeApplication&, const FakeMenu&) {
            fake.activate(fake.addApplication("Other"));
        },
        [](FakePlatform& fake, const FakeApplication&, const FakeMenu& file) {
            fake.accessibility.setAttribute(file.item(), "AXTitle", std::string("Renamed"));
        },
        [](FakePlatform& fake, const FakeApplication&, const FakeMenu& file) {
            fake.accessibility.addChild(file.element(), file.item());
        },
    };
    std::size_t cases = 0;
    for (const Step step : {Step::Rebuild, Step::Opening}) {
        const std::size_t calls = callsOf(step);
        for (std::size_t damage = 0; damage < damages.size(); ++damage) {
            for (std::size_t call = 0; call < calls; ++call, ++cases) {
                SCOPED_TRACE(testing::Message() << "damage " << damage << " before call " << call);
                runBroken(step, [&](Case& each) {
                    each.fake.accessibility.beforeCall(
                        call, [&] { damages[damage](each.fake, each.application, each.file); });
                });
            }
        }
    }
    report("menus changed between two calls", cases);
}

// An application whose menus may be cached; the menu that is filled last is shown from the cache.
void runBrokenCached(const std::function<void(Case&)>& breakCall) {
    Case each("Editor");
    each.fake.accessibility.clearCalls();
    breakCall(each);
    each.reader->update();
    each.work->runAll();
    each.openEverything();
    each.expectUsable();
    each.work->runAll();
    each.expectRecovery();
}

TEST_F(FaultSweep, LeavesAUsableMirrorWhicheverCallOfAFillingOrACopyFails) {
    Case healthy("Editor");
    healthy.fake.accessibility.clearCalls();
    healthy.reader->update();
    EXPECT_GT(healthy.work->waiting(), 0U);
    healthy.work->runAll();
    healthy.openEverything();
    std::size_t cases = 0;
    for (const FakeFault fault : {FakeFault::Dead, FakeFault::Slow, FakeFault::WrongType, FakeFault::Disappearing}) {
        for (std::size_t call = 0; call < healthy.callsSoFar(); ++call, ++cases) {
            SCOPED_TRACE(testing::Message() << "fault " << static_cast<int>(fault) << " at call " << call);
            runBrokenCached([&](Case& each) { each.fake.accessibility.failCall(call, fault); });
        }
    }
    report("one call of a cached application failed", cases);
}

TEST_F(FaultSweep, FindsNoFaultInAHealthyApplication) {
    Case healthy;
    healthy.reader->update();
    healthy.openEverything();
    healthy.expectUsable();
    EXPECT_THAT(titlesOf(*healthy.reader->menu()), ElementsAre("File", "Services"));
    EXPECT_THAT(titlesOf(*healthy.reader->menu()->itemAtIndex(0)->submenu()),
        ElementsAre("New", "", "Close", "Close All", "Open Recent"));
    EXPECT_THAT(titlesOf(*healthy.reader->menu()->itemAtIndex(1)->submenu()), ElementsAre("Shown"));
}

} // namespace
} // namespace tarragon
