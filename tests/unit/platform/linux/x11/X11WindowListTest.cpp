#include "platform/linux/x11/X11WindowList.h"

#include "platform/linux/desktop/DesktopEntries.h"
#include "platform/linux/x11/X11Connection.h"
#include "platform/linux/x11/X11Windows.h"
#include "support/X11Client.h"
#include "support/XkbServer.h"

#include <filesystem>
#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include <gmock/gmock.h>

#include <unistd.h>

namespace tarragon {

void PrintTo(const ListedWindow& window, std::ostream* stream) {
    *stream << window.identifier << " \"" << window.title << "\" of " << window.ownerName << ", process "
            << window.processIdentifier;
}

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class X11WindowListTest : public testing::Test {
protected:
    void SetUp() override {
        if (_server.displayName().empty())
            GTEST_SKIP() << "Xvfb is not installed";
        _connection = X11Connection::connect(_server.displayName());
        ASSERT_TRUE(_connection);
        client = std::make_unique<X11Client>(_server.displayName());
        _windows = std::make_unique<X11Windows>(*_connection);
        list = std::make_unique<X11WindowList>(*_connection, *_windows, _entries);
    }

    xcb_window_t makeWindow(const std::string& title) {
        const xcb_window_t window = client->makeWindow();
        client->setText(window, "_NET_WM_NAME", title);
        const std::string both = std::string("editor") + '\0' + "Editor" + '\0';
        xcb_change_property(client->connection(), XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8,
            static_cast<std::uint32_t>(both.size()), both.data());
        client->map(window);
        return window;
    }
    // As a window manager tells them, bottom to top.
    void manage(const std::vector<std::uint32_t>& windows) {
        client->setNumbers(client->root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW, windows);
        client->setNumbers(client->root(), "_NET_CLIENT_LIST_STACKING", XCB_ATOM_WINDOW, windows);
    }

private:
    XkbServer _server;
    std::unique_ptr<X11Connection> _connection;
    std::unique_ptr<X11Windows> _windows;
    DesktopEntries _entries{std::vector<std::filesystem::path>(), std::vector<std::string>()};

protected:
    std::unique_ptr<X11Client> client;
    std::unique_ptr<X11WindowList> list;
};

TEST_F(X11WindowListTest, NamesTheWindowsFrontToBack) {
    const xcb_window_t first = makeWindow("Notes");
    const xcb_window_t second = makeWindow("Letter – draft");
    manage({first, second});
    EXPECT_THAT(list->onScreenWindows(),
        ElementsAre(ListedWindow{second, "Letter – draft", "Editor", ::getpid()},
            ListedWindow{first, "Notes", "Editor", ::getpid()}));
    manage({second, first});
    EXPECT_EQ(list->onScreenWindows().front().identifier, first);
}

TEST_F(X11WindowListTest, LeavesOutWhatIsNotOnTheScreen) {
    const xcb_window_t shown = makeWindow("shown");
    const xcb_window_t elsewhere = makeWindow("on another workspace");
    client->unmap(elsewhere);
    const xcb_window_t minimised = makeWindow("minimised");
    client->setNumbers(minimised, "_NET_WM_STATE", XCB_ATOM_ATOM, {client->atom("_NET_WM_STATE_HIDDEN")});
    const xcb_window_t gone = makeWindow("gone");
    manage({shown, elsewhere, minimised, gone});
    client->destroy(gone);
    EXPECT_THAT(list->onScreenWindows(), ElementsAre(ListedWindow{shown, "shown", "Editor", ::getpid()}));
}

TEST_F(X11WindowListTest, IsEmptyWithoutAWindowManager) {
    makeWindow("unmanaged");
    EXPECT_THAT(list->onScreenWindows(), IsEmpty());
}

TEST_F(X11WindowListTest, AsksTheWindowManagerToRaiseAWindow) {
    const xcb_window_t window = makeWindow("Notes");
    const std::uint32_t mask = XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY;
    xcb_change_window_attributes(client->connection(), client->root(), XCB_CW_EVENT_MASK, &mask);
    client->takeEvents();
    EXPECT_TRUE(list->raise(window));
    // Only an answer tells that the server has passed the message on.
    list->onScreenWindows();
    EXPECT_EQ(client->countEvents(XCB_CLIENT_MESSAGE), 1);
}

} // namespace
} // namespace tarragon
