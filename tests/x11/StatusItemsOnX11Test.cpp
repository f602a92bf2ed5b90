#include "platform/qt/QtRunLoop.h"
#include "platform/qt/QtStatusItems.h"
#include "support/X11Client.h"

#include <array>
#include <cstdlib>
#include <memory>
#include <set>
#include <string>

#include <QApplication>
#include <QMenu>
#include <QTest>

#include <gmock/gmock.h>

namespace tarragon {
namespace {

// A tray of the older kind: whoever owns a certain selection gets the windows of the items.
class Tray {
public:
    Tray() {
        _window = _client.makeWindow({.width = 200, .height = 24});
        _client.map(_window);
        const xcb_atom_t selection = _client.atom("_NET_SYSTEM_TRAY_S0");
        xcb_set_selection_owner(_client.connection(), _window, selection, XCB_CURRENT_TIME);
        xcb_client_message_event_t message{};
        message.response_type = XCB_CLIENT_MESSAGE;
        message.format = 32;
        message.window = _client.root();
        message.type = _client.atom("MANAGER");
        message.data.data32[1] = selection;
        message.data.data32[2] = _window;
        xcb_send_event(_client.connection(), 0, _client.root(), XCB_EVENT_MASK_STRUCTURE_NOTIFY,
            reinterpret_cast<const char*>(&message));
        _client.synchronize();
    }

    // Takes in what asks for it; how many items there are.
    std::size_t itemCount() {
        _client.synchronize();
        while (xcb_generic_event_t* event = xcb_poll_for_event(_client.connection())) {
            if ((event->response_type & 0x7F) == XCB_CLIENT_MESSAGE) {
                const auto& message = reinterpret_cast<const xcb_client_message_event_t&>(*event);
                if (message.type == _client.atom("_NET_SYSTEM_TRAY_OPCODE") && message.data.data32[1] == 0)
                    _items.insert(message.data.data32[2]);
            }
            std::free(event);
        }
        std::erase_if(_items, [this](xcb_window_t item) { return !_client.exists(item); });
        return _items.size();
    }

private:
    X11Client _client{std::getenv("DISPLAY")};
    xcb_window_t _window = 0;
    std::set<xcb_window_t> _items;
};

class StatusItemsOnX11 : public testing::Test {
protected:
    std::unique_ptr<StatusItem> addItem() {
        return items.addItem({"statusItemIcon", "statusItemIconInverse",
            {{"About Tarragon...", [this] { chosen += "about "; }}, {"Quit & more", [this] { chosen += "quit "; }}}});
    }
    static bool waitForItems(Tray& tray, std::size_t count) {
        return QTest::qWaitFor([&] { return tray.itemCount() == count; }, 20000);
    }
    // The menu of the one item there is.
    static QMenu* menu() {
        for (QWidget* widget : QApplication::topLevelWidgets()) {
            if (auto* found = qobject_cast<QMenu*>(widget); found && !found->actions().isEmpty())
                return found;
        }
        return nullptr;
    }

    QtRunLoop runLoop;
    QtStatusItems items{runLoop};
    std::string chosen;
};

TEST_F(StatusItemsOnX11, AppearInTheTrayAndGoWithTheirObject) {
    Tray tray;
    auto item = addItem();
    EXPECT_TRUE(waitForItems(tray, 1));
    item.reset();
    EXPECT_TRUE(waitForItems(tray, 0));
}

TEST_F(StatusItemsOnX11, AppearInATrayThatComesLater) {
    const auto item = addItem();
    QCoreApplication::processEvents();
    Tray tray;
    EXPECT_TRUE(waitForItems(tray, 1));
}

TEST_F(StatusItemsOnX11, SurviveTheEndOfATrayAndAppearInTheNextOne) {
    auto tray = std::make_unique<Tray>();
    const auto item = addItem();
    EXPECT_TRUE(waitForItems(*tray, 1));
    tray.reset();
    QCoreApplication::processEvents();
    tray = std::make_unique<Tray>();
    EXPECT_TRUE(waitForItems(*tray, 1));
}

TEST_F(StatusItemsOnX11, CallTheActionOfTheChosenItemFromTheRunLoop) {
    auto item = addItem();
    ASSERT_TRUE(menu());
    ASSERT_EQ(menu()->actions().size(), 2);
    EXPECT_EQ(menu()->actions().at(1)->text(), "Quit && more");
    menu()->actions().at(1)->trigger();
    EXPECT_EQ(chosen, "");
    EXPECT_TRUE(QTest::qWaitFor([&] { return chosen == "quit "; }, 20000));
}

TEST_F(StatusItemsOnX11, CanBeTakenAwayByTheirOwnAction) {
    std::unique_ptr<StatusItem> item;
    item = items.addItem({"statusItemIcon", "", {{"Remove", [&] { item.reset(); }}}});
    ASSERT_TRUE(menu());
    menu()->actions().at(0)->trigger();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !item; }, 20000));
}

} // namespace
} // namespace tarragon
