// Applications that change, lie, fall silent or go away while they are read.
#include "bus/AtspiTreeFixture.h"

#include <atomic>
#include <future>
#include <gmock/gmock.h>

namespace tarragon {
namespace {

TEST_F(AtspiTreeTest, ReadsAMenuAgainWhoseItemsWereReplacedMeanwhile) {
    for (const AtspiToolkit toolkit : {AtspiToolkit::Gtk, AtspiToolkit::Qt}) {
        const bool isGtk = toolkit == AtspiToolkit::Gtk;
        if (isGtk)
            makeGtkMenu(3);
        else
            makeQtMenu(3);
        const std::string menu = isGtk ? "/bar/file" : "/popup";
        application.change([&] {
            // The first question about an item finds others in its place.
            application.beforeReply = [this, menu, isDone = false](const std::string& path) mutable {
                if (isDone || !path.starts_with(menu + "/"))
                    return;
                isDone = true;
                auto& objects = application.objects;
                for (std::string& child : objects[menu].children) {
                    auto item = objects.extract(child);
                    item.key() = child.append("new");
                    item.mapped().name = "New " + item.mapped().name;
                    objects.insert(std::move(item));
                }
            };
        });
        AtspiNodes nodes;
        EXPECT_EQ(readLevel(AtspiTree(connection, nodes, memory, AtspiTree::Reading::OneLevel),
                      element("/bar/file", toolkit, Place::InMenuBar, isGtk ? 3 : -1)),
            (std::vector<std::string>{"New Item 0", "New Item 1", "New Item 2"}));
    }
}

TEST_F(AtspiTreeTest, ShowsWhatIsLeftOfAMenuThatNeverComesToRest) {
    makeGtkMenu(3);
    application.change([&] { application.objects.erase("/bar/file/1"); });
    EXPECT_EQ(readLevel(tree, element("/bar/file", AtspiToolkit::Gtk, Place::InMenuBar, 3)),
        (std::vector<std::string>{"Item 0", "Item 2"}));
    // Once more, in case that others are there now.
    EXPECT_EQ(application.calls("GetChildren"), 2U);
}

TEST_F(AtspiTreeTest, ShowsWhatAnApplicationToldBeforeItFellSilent) {
    makeGtkMenu(3);
    application.change([&] {
        application.beforeReply = [](const std::string& path) {
            if (path == "/bar/file/2")
                std::this_thread::sleep_for(2000ms);
        };
    });
    connection.beginOperation();
    EXPECT_EQ(readLevel(tree, element("/bar/file", AtspiToolkit::Gtk, Place::InMenuBar, 3)),
        (std::vector<std::string>{"Item 0", "Item 1", "nil"}));
}

TEST_F(AtspiTreeTest, SurvivesAMenuThatIsAmongItsOwnItems) {
    for (const AtspiToolkit toolkit : {AtspiToolkit::Gtk, AtspiToolkit::Qt}) {
        const bool isGtk = toolkit == AtspiToolkit::Gtk;
        if (isGtk)
            makeGtkMenu(1);
        else
            makeQtMenu(1);
        const std::string menu = isGtk ? "/bar/file" : "/popup";
        application.change([&] {
            application.objects[menu].children = {menu, "/missing", application.objects[menu].children[0]};
        });
        AtspiNodes nodes;
        const auto titles = readLevel(AtspiTree(connection, nodes, memory, AtspiTree::Reading::OneLevel),
            element("/bar/file", toolkit, Place::InMenuBar, isGtk ? 3 : -1));
        EXPECT_EQ(titles, std::vector<std::string>{"Item 0"});
    }
}

// Walks down all children; gives up beyond any reasonable number.
std::size_t sizeOfTree(AtspiTree& tree, const Element& element, std::size_t limit) {
    std::size_t size = 1;
    const Value children = tree.attributeValue(element, attribute::Children);
    if (const auto* list = valueAs<std::vector<Element>>(children)) {
        for (const Element& child : *list) {
            if (size < limit)
                size += sizeOfTree(tree, child, limit - size);
        }
    }
    return size;
}

TEST_F(AtspiTreeTest, CutsOffTreesThatBiteTheirTail) {
    application.change([&] {
        application.objects["/bar"] = {AtspiRoleMenuBar, "", Visible, {"/bar", "/menu"}, "", ""};
        application.objects["/menu"] = {AtspiRoleMenu, "M", Visible, {"/menu", "/inner", "/bar"}, "", "/bar"};
        application.objects["/inner"] = {AtspiRoleMenu, "I", Visible, {"/menu"}, "", "/menu"};
    });
    EXPECT_LT(sizeOfTree(tree, element("/bar", AtspiToolkit::Gtk), 1000), 20U);
    AtspiNodes nodes;
    AtspiTree all(connection, nodes, memory, AtspiTree::Reading::AllLevels);
    EXPECT_LT(sizeOfTree(all, element("/bar", AtspiToolkit::Gtk), 1000), 20U);
}

TEST_F(AtspiTreeTest, CutsOffTreesThatNeverEnd) {
    application.change([&] {
        std::string path = "/endless";
        for (int depth = 0; depth < 300; ++depth) {
            const std::string next = path + "/x";
            application.objects[path] = {AtspiRoleMenu, "M", Visible, {next}, "", ""};
            path = next;
        }
    });
    EXPECT_LT(sizeOfTree(tree, element("/endless", AtspiToolkit::Gtk, Place::InMenu), 1000), 150U);
    AtspiNodes nodes;
    AtspiTree all(connection, nodes, memory, AtspiTree::Reading::AllLevels);
    EXPECT_LT(sizeOfTree(all, element("/endless", AtspiToolkit::Gtk, Place::InMenu), 1000), 150U);
}

TEST_F(AtspiTreeTest, TakesNonsenseForNothing) {
    makeGtkMenu(3);
    application.change([&] { application.answersNonsense = true; });
    const Element entry = element("/bar/file", AtspiToolkit::Gtk, Place::InMenuBar);
    EXPECT_FALSE(tree.attributeNames(entry));
    for (const std::string_view name :
        {attribute::Role, attribute::Title, attribute::Enabled, attribute::Children, attribute::Position,
            attribute::Size, attribute::Value, attribute::Description, attribute::MenuItemCmdChar})
        EXPECT_TRUE(isNil(tree.attributeValue(entry, name))) << name;
}

TEST_F(AtspiTreeTest, CutsOffHugeTextsBetweenCharacters) {
    application.change([&] {
        FakeAccessible item{AtspiRoleMenuItem, "x", Visible, {}, "", ""};
        for (int count = 0; count < 50'000; ++count)
            item.name += "\u00e4";
        application.objects["/item"] = item;
    });
    const std::string title =
        string(tree.attributeValue(element("/item", AtspiToolkit::Gtk, Place::InMenu), attribute::Title));
    EXPECT_LE(title.size(), AtspiReply::TextLimit);
    EXPECT_EQ(title.size() % 2, 1U); // "x" and whole characters of two bytes
}

TEST_F(AtspiTreeTest, GivesNothingForObjectsAndApplicationsThatAreGone) {
    EXPECT_TRUE(isNil(tree.attributeValue(element("/none", AtspiToolkit::Gtk), attribute::Title)));
    auto handle = std::make_shared<AtspiElement>();
    handle->kind = AtspiElement::Kind::Node;
    handle->reference = {":1.9999", "/bar"};
    const Element gone{handle};
    EXPECT_TRUE(isNil(tree.attributeValue(gone, attribute::Title)));
    EXPECT_TRUE(connection.isGone(":1.9999"));
    handle = std::make_shared<AtspiElement>();
    handle->kind = AtspiElement::Kind::Node;
    handle->reference = {"no bus name", "no path"};
    EXPECT_TRUE(isNil(tree.attributeValue(Element{handle}, attribute::Title)));
}

TEST_F(AtspiTreeTest, LeavesASilentApplicationAfterASecondAndThenAtOnce) {
    makeGtkMenu(50);
    application.change([&] { application.isSilent = true; });
    const Element file = element("/bar/file", AtspiToolkit::Gtk, Place::InMenuBar);
    auto start = Clock::now();
    connection.beginOperation();
    EXPECT_TRUE(isNil(tree.attributeValue(file, attribute::Children)));
    EXPECT_GE(Clock::now() - start, 950ms);
    EXPECT_LT(Clock::now() - start, 4s);

    start = Clock::now();
    for (int count = 0; count < 100; ++count) {
        AtspiNodes nodes;
        connection.beginOperation();
        EXPECT_TRUE(isNil(AtspiTree(connection, nodes, memory, AtspiTree::Reading::OneLevel)
                              .attributeValue(file, attribute::Children)));
    }
    // Not a second for each.
    EXPECT_LT(Clock::now() - start, 20s);

    // Others are not affected.
    AtspiFakeApplication other(bus);
    other.change([&] { other.objects["/x"] = {AtspiRoleMenuItem, "X", Visible, {}, "", ""}; });
    auto handle = std::make_shared<AtspiElement>();
    handle->kind = AtspiElement::Kind::Node;
    handle->reference = {other.busName(), "/x"};
    EXPECT_EQ(string(tree.attributeValue(Element{handle}, attribute::Title)), "X");
}

TEST_F(AtspiTreeTest, AsksAnApplicationAgainOnceItAnsweredTheProbe) {
    application.change([&] {
        application.objects["/org/a11y/atspi/accessible/root"] = {AtspiRoleApplication, "App", Visible, {}, "", ""};
        application.objects["/x"] = {AtspiRoleMenuItem, "X", Visible, {}, "", ""};
        // Gives no answer in time, then goes on with its work as if nothing had been.
        application.beforeReply = [&, first = true](const auto&) mutable {
            if (first)
                std::this_thread::sleep_for(2000ms);
            first = false;
        };
    });
    connection.beginOperation();
    EXPECT_TRUE(isNil(tree.attributeValue(element("/x", AtspiToolkit::Gtk), attribute::Title)));
    EXPECT_FALSE(connection.mayAsk(application.busName()));
    const auto deadline = Clock::now() + 5s;
    while (!connection.mayAsk(application.busName()) && Clock::now() < deadline)
        std::this_thread::yield();
    AtspiNodes nodes;
    connection.beginOperation();
    EXPECT_EQ(string(AtspiTree(connection, nodes, memory, AtspiTree::Reading::OneAttribute)
                         .attributeValue(element("/x", AtspiToolkit::Gtk), attribute::Title)),
        "X");
}

TEST_F(AtspiTreeTest, HearsASlowApplicationOut) {
    makeGtkMenu(10);
    // Longer in all than it may be silent, shorter each time.
    application.change([&] {
        application.beforeReply = [hesitations = 0](const auto&) mutable {
            if (++hesitations <= 8)
                std::this_thread::sleep_for(150ms);
        };
    });
    const auto start = Clock::now();
    connection.beginOperation();
    EXPECT_THAT(readLevel(tree, element("/bar/file", AtspiToolkit::Gtk, Place::InMenuBar)),
        ::testing::AllOf(::testing::SizeIs(10), ::testing::Not(::testing::Contains("nil"))));
    EXPECT_GE(Clock::now() - start, 1200ms);
}

TEST_F(AtspiTreeTest, HandsAPressOverWithoutWaitingForItsEnd) {
    makeGtkMenu(3);
    ASSERT_TRUE(connection.ensureOpen());
    std::promise<void> end;
    std::atomic<bool> hasEnded = false;
    application.change([&] {
        application.beforeReply = [&, hasToEnd = end.get_future().share()](const auto&) {
            hasToEnd.wait_for(20s);
            hasEnded = true;
        };
    });
    EXPECT_TRUE(connection.post(
        {{application.busName(), "/bar/file/1"}, "org.a11y.atspi.Action", "DoAction", std::int32_t{0}, {}}));
    EXPECT_FALSE(hasEnded);
    end.set_value();
    const auto deadline = Clock::now() + 5s;
    while (application.calls("DoAction") == 0 && Clock::now() < deadline)
        std::this_thread::yield();
    EXPECT_EQ(application.calls("DoAction"), 1U);
}

TEST_F(AtspiTreeTest, ConnectsAgainWhenTheBusCameBack) {
    ASSERT_TRUE(connection.ensureOpen());
    const auto identity = connection.busIdentity();
    bus.stop();
    const auto deadline = Clock::now() + 10s;
    makeGtkMenu(1);
    while (connection.busIdentity() != 0 && Clock::now() < deadline) {
        AtspiNodes nodes;
        nodes.fetch(connection, {application.busName(), "/bar"}, AtspiFieldRole);
        static_cast<void>(connection.ensureOpen());
    }
    EXPECT_EQ(connection.busIdentity(), 0U);
    const AtspiFakeBus another;
    ::setenv("AT_SPI_BUS_ADDRESS", another.address().c_str(), 1);
    while (!connection.ensureOpen() && Clock::now() < deadline)
        std::this_thread::yield();
    EXPECT_NE(connection.busIdentity(), 0U);
    EXPECT_NE(connection.busIdentity(), identity);
}

TEST_F(AtspiTreeTest, ReadsOverTwoConnectionsFromTwoThreads) {
    makeGtkMenu(700);
    const Element file = element("/bar/file", AtspiToolkit::Gtk, Place::InMenuBar);
    std::vector<std::string> titles;
    std::thread other([&] {
        AtspiSessionBus otherSessionBus;
        AtspiConnection otherConnection(otherSessionBus);
        AtspiNodes nodes;
        titles = readLevel(AtspiTree(otherConnection, nodes, memory, AtspiTree::Reading::OneLevel), file);
    });
    const auto ownTitles = readLevel(tree, file);
    other.join();
    EXPECT_EQ(ownTitles.size(), 700U);
    EXPECT_EQ(titles, ownTitles);
}

} // namespace
} // namespace tarragon
